// The sections around the jobs of a scene: figures, warnings, and what gave no job.

const MOST_LINKS = 24;
const MOST_RENDERERS = 6;

/** Figures, of which some lead to their sections: `before`, `value`, `name`, `to` (an address) or `act`, `kind`. */
function figures(list) {
    return el("ul", {class: "figures"}, list.filter(Boolean).map(figureItem));
}

function figureItem({before, value, name, to, act, kind}) {
    const number = typeof value === "number" ? grouped(value) : value;
    const content = [before && `${before} `, el("b", {}, number), name && ` ${name}`];
    if (act) {
        const button = el("button", {type: "button"}, content);
        button.addEventListener("click", act);
        return el("li", {class: kind}, button);
    }
    if (!to || value === 0) return el("li", {}, el("span", {}, content));
    return el("li", {class: kind}, el("a", {href: to}, content));
}

/** The frames of jobs, and in how many of them they are not known. */
function frameFigures(jobs) {
    const frames = framesOf(jobs);
    const uncounted = jobs.filter((job) => job.frameCount === undefined).length;
    return [
        {value: frames, name: nounFor(frames, "frame")},
        uncounted > 0 && {value: uncounted, name: `${nounFor(uncounted, "job")} without a count of frames`}
    ];
}

/** Frames by renderer; each leads to its jobs. */
function rendererFigures(jobs, findJobs) {
    const totals = rendererTotals(jobs);
    if (totals.length === 0) return null;
    const item = ({renderer, jobs, frames}) => figureItem({
        before: renderer || "no renderer",
        value: frames,
        name: `${nounFor(frames, "frame")}, ${plural(jobs, "job")}`,
        act: () => findJobs(renderer)
    });
    return el(
        "div", {class: "renderers-total", role: "group", "aria-label": "Frames by renderer"},
        shortList("figures", totals, item, MOST_RENDERERS));
}

function sceneFigures(scene, index) {
    const {facts} = scene;
    const skipped = scene.skipped?.length;
    const range = facts?.frameRange;
    const place = (name) => `#s${index}-${name}`;
    return figures([
        {value: scene.jobs.length, name: nounFor(scene.jobs.length, "job"), to: place("jobs")},
        ...frameFigures(scene.jobs), scene.warnings && {
            value: scene.warnings.length,
            name: nounFor(scene.warnings.length, "warning"),
            to: place("warnings"),
            kind: "notice"
        },
        scene.skipped &&
            {value: skipped, name: `${nounFor(skipped, "node")} without a job`, to: place("skipped"), kind: "notice"},
        facts && {before: "Houdini", value: facts.houdiniVersion || "version unknown"},
        range &&
            {before: "Scene frames", value: frameRangeText(range), name: range.stored ? "" : "not stored in the scene"},
        facts?.takes?.length > 1 && {value: facts.takes.length, name: "takes", to: place("takes")}
    ]);
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

function warningItem({node, text, jobs}, id, index) {
    const place = node ? [code(node), " "] : null;
    return el("li", {id, tabindex: "-1"}, place, el("span", {}, longText(text)), " ", jobLinks(jobs ?? [], index));
}

function warningsSection({warnings = []}, index) {
    if (warnings.length === 0) return null;
    const makeItem = (warning, at) => warningItem(warning, `s${index}-w${at + 1}`, index);
    return section(
        `s${index}-warnings`, `Warnings (${grouped(warnings.length)})`, shortList("warnings", warnings, makeItem));
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

function skippedSection({skipped = []}, index) {
    if (skipped.length === 0) return null;
    const makeItem = (item, at) => skippedItem(item, `s${index}-x${at + 1}`);
    return section(
        `s${index}-skipped`, `Without a job (${grouped(skipped.length)})`, shortList("skipped", skipped, makeItem));
}
