// The sections around the jobs of a scene: figures, warnings, what gave no job, and the facts of the scene.

const MOST_LINKS = 24;

/** Figures that lead to their sections. A figure without a link has nothing to lead to. */
function figures(scene, index) {
    const {facts} = scene;
    const skipped = scene.skipped && skippedDrivers(scene).length;
    const range = facts?.frameRange;
    const list = [
        {value: scene.jobs.length, name: nounFor(scene.jobs.length, "job"), to: "jobs"},
        scene.skipped && {value: skipped, name: `${nounFor(skipped, "driver")} skipped`, to: "skipped", kind: "notice"},
        scene.warnings && {
            value: scene.warnings.length,
            name: nounFor(scene.warnings.length, "warning"),
            to: "warnings",
            kind: "notice"
        },
        facts && {before: "Houdini", value: facts.houdiniVersion || "version unknown"},
        range && {before: "Frames", value: frameRangeText(range), name: range.stored ? "" : "not stored in the scene"},
        facts?.takes?.length > 1 && {value: facts.takes.length, name: "takes", to: "takes"},
    ];
    return el("ul", {class: "figures"}, list.filter(Boolean).map((figure) => figureItem(figure, index)));
}

function figureItem({before, value, name, to, kind}, index) {
    const content = [before && `${before} `, el("b", {}, value), name && ` ${name}`];
    if (!to || value === 0) return el("li", {}, el("span", {}, content));
    return el("li", {class: kind}, el("a", {href: `#s${index}-${to}`}, content));
}

function jobLinks(numbers, index) {
    if (numbers.length === 0) return null;
    const link = (number) => el("a", {href: `#s${index}-j${number}`}, number);
    const links = numbers.slice(0, MOST_LINKS).map((number, at) => [at > 0 ? " " : "", link(number)]);
    const more = numbers.length - MOST_LINKS;
    return el(
        "span", {class: "links"}, numbers.length === 1 ? "job " : "jobs ", links,
        more > 0 ? ` and ${more} more` : null);
}

function warningsSection(scene, index) {
    if (!scene.warnings?.length) return null;
    const items = scene.warnings.map(({node, text, jobs}) => {
        const place = node ? [code(node), " "] : null;
        return el("li", {}, place, el("span", {}, longText(text)), " ", jobLinks(jobs ?? [], index));
    });
    return section(`s${index}-warnings`, `Warnings (${items.length})`, el("ul", {class: "warnings"}, items));
}

const READER_NAMES = {
    driver: "driver",
    camera: "camera",
    lop: "LOP node",
    usdRenderSettings: "USD render settings",
    wedge: "wedge",
};

function skippedItem(item, id) {
    const kind = item.reader ? READER_NAMES[item.reader] ?? item.reader : "not recognised";
    const details = (item.details ?? []).map((detail) => el("li", {}, code(detail)));
    return el(
        "li", {id, tabindex: "-1"},
        el("div", {}, code(item.node), " ", el("span", {class: "chip"}, kind),
           el("span", {class: "quiet place"}, `line ${item.line}, byte ${item.byte}`)),
        el("div", {class: "reason"}, longText(item.text)),
        details.length > 0 ? el("ul", {class: "details"}, details) : null);
}

function textOfSkipped(item) {
    return [item.node, item.text, ...(item.details ?? [])].join("\n").toLowerCase();
}

/** The section and its entries, which the filter looks through. */
function skippedSection(scene, index) {
    const entries = (scene.skipped ?? []).map((item, position) => {
        const id = `s${index}-x${position + 1}`;
        return {item, id, text: textOfSkipped(item), element: skippedItem(item, id)};
    });
    const list = entries.length > 0 ? el("ul", {class: "skipped"}, entries.map((entry) => entry.element)) : null;
    return {entries, element: list && section(`s${index}-skipped`, `Without a job (${entries.length})`, list)};
}

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

function camerasSection(facts, index) {
    if (!facts.cameras?.length) return null;
    const fit = ({width, height}) => Math.min(CAMERA_ROOM.width / width, CAMERA_ROOM.height / height);
    const scale = facts.cameras.filter(isMeasured).reduce((least, camera) => Math.min(least, fit(camera)), 1);
    return section(
        `s${index}-cameras`, `Cameras (${facts.cameras.length})`,
        el("ul", {class: "cameras"}, facts.cameras.map((camera) => cameraItem(camera, scale))));
}

function takesSection(facts, index) {
    if (!facts.takes?.length) return null;
    return section(
        `s${index}-takes`, `Takes (${facts.takes.length})`,
        el("ul", {class: "takes"}, facts.takes.map((take) => el("li", {class: "chip"}, longText(take)))));
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
    ["Name", (variable) => code(variable.name)],
    ["Value", (variable) => code(variable.value)],
    ["From", (variable) => variable.from],
];

/** Lists of facts that are tables: the fact, its title, its columns. */
const FACT_TABLES = [
    ["wedges", "Wedges", WEDGE_COLUMNS],
    ["lops", "LOP nodes", LOP_COLUMNS],
    ["usdRenderSettings", "USD render settings", USD_COLUMNS],
];

function variablesSection(facts, index) {
    if (!facts.variables?.length) return null;
    const title = el("summary", {}, el("h3", {}, `Variables (${facts.variables.length})`));
    const table = plainTable("Variables", VARIABLE_COLUMNS, facts.variables);
    return el("section", {id: `s${index}-variables`, "aria-label": "Variables"}, el("details", {}, title, table));
}

function factSections(scene, index) {
    const {facts} = scene;
    if (!facts) return [];
    const tables =
        FACT_TABLES.filter(([fact]) => facts[fact]?.length > 0)
            .map(
                ([fact, title, columns]) => section(
                    `s${index}-${fact}`, `${title} (${facts[fact].length})`, plainTable(title, columns, facts[fact])));
    return [camerasSection(facts, index), takesSection(facts, index), tables, variablesSection(facts, index)];
}
