// The facts of a scene: cameras, takes, and what is told in tables.

// Pixels for the largest camera, and for one of unknown size.
const CAMERA_ROOM = {
    width: 96,
    height: 60
};
const UNKNOWN_CAMERA = {
    width: 48,
    height: 30
};

function commonDivisor(left, right) {
    return right === 0 ? left : commonDivisor(right, left % right);
}

function aspectText({width, height}) {
    const divisor = commonDivisor(width, height);
    const [across, down] = [width / divisor, height / divisor];
    return across <= 64 && down <= 64 ? `${across}:${down}` : `${(width / height).toFixed(2)}:1`;
}

function isMeasured(camera) {
    return camera.width > 0 && camera.height > 0;
}

function cameraFrame(camera, scale) {
    const scaled = (pixels) => Math.max(2, pixels * scale);
    const isKnown = isMeasured(camera);
    const size = isKnown ? {width: scaled(camera.width), height: scaled(camera.height)} : UNKNOWN_CAMERA;
    const room = {width: CAMERA_ROOM.width + 2, height: CAMERA_ROOM.height + 2};
    return svg(
        "svg", {class: isKnown ? "frame" : "frame unknown", ...room, "aria-hidden": "true"},
        svg("rect", {x: 1, y: 1 + (CAMERA_ROOM.height - size.height) / 2, ...size}));
}

function cameraSize(camera) {
    if (!isMeasured(camera)) return "the scene has no settings of this camera";
    return [el("b", {}, `${camera.width} \u00d7 ${camera.height}`), " ", aspectText(camera)];
}

function cameraItem(camera, scale) {
    const stereo = camera.stereo ? [" ", el("span", {class: "chip"}, "stereo")] : null;
    const users = camera.drivers?.length > 0 ? ["used by ", joinedCodes(camera.drivers)] : "no driver uses it";
    const words = [code(camera.node), stereo, el("div", {}, cameraSize(camera)), el("div", {class: "quiet"}, users)];
    return el("li", {}, cameraFrame(camera, scale), el("div", {}, words));
}

function camerasSection(cameras, id) {
    const fit = ({width, height}) => Math.min(CAMERA_ROOM.width / width, CAMERA_ROOM.height / height);
    const scale = cameras.filter(isMeasured).reduce((least, camera) => Math.min(least, fit(camera)), 1);
    return foldedSection(
        id, "Cameras", cameras.length,
        () => el("ul", {class: "cameras"}, cameras.map((camera) => cameraItem(camera, scale))));
}

function takesSection(takes, id) {
    const item = (take) => el("li", {class: "chip"}, longText(take));
    return foldedSection(id, "Takes", takes.length, () => el("ul", {class: "takes"}, takes.map(item)));
}

function joinedCodes(texts) {
    return (texts ?? []).map((text, at) => [at > 0 ? ", " : "", code(text)]);
}

function wedgeChannel({name, start, end, steps}) {
    return el("div", {}, code(name), ` ${start} to ${end} in ${plural(steps, "step")}`);
}

const WEDGE_COLUMNS = [
    ["Wedge", (wedge) => code(wedge.node)],
    ["Driver", (wedge) => code(wedge.driver)],
    ["Variants", (wedge) => wedge.variants],
    ["Channels", (wedge) => (wedge.channels ?? []).map(wedgeChannel)],
];

const LOP_COLUMNS = [
    ["Node", (lop) => code(lop.node)],
    ["Renderer", (lop) => longText(lop.renderer ?? "")],
    ["Image", (lop) => code(lop.image)],
    ["Used by", (lop) => joinedCodes(lop.drivers)],
];

const USD_COLUMNS = [
    ["Node", (settings) => code(settings.node)],
    ["Camera", (settings) => code(settings.camera)],
    ["Image", (settings) => code(settings.image)],
    ["Archive", (settings) => (settings.archive ? "yes" : "no")],
    ["Used by", (settings) => joinedCodes(settings.drivers)],
];

const VARIABLE_COLUMNS = [
    ["Name", ([name]) => code(name)],
    ["Value", ([, value]) => code(value)],
    ["From", ([, , source]) => source ?? "scene"],
];

function tableSection(title, columns, isAlwaysLong) {
    return (entries, id) => foldedSection(
               id, title, entries.length, () => plainTable(title, columns, entries), isAlwaysLong || undefined);
}

/** The facts that are lists, in the order in which they are shown. */
const FACT_SECTIONS = [
    ["cameras", camerasSection],
    ["takes", takesSection],
    ["wedges", tableSection("Wedges", WEDGE_COLUMNS)],
    ["lops", tableSection("LOP nodes", LOP_COLUMNS)],
    ["usdRenderSettings", tableSection("USD render settings", USD_COLUMNS)],
    ["variables", tableSection("Variables", VARIABLE_COLUMNS, true)],
];

function factSections({facts}, index) {
    return FACT_SECTIONS.filter(([fact]) => facts?.[fact]?.length > 0)
        .map(([fact, makeSection]) => makeSection(facts[fact], `s${index}-${fact}`));
}
