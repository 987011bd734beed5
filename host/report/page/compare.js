// Two scenes side by side: the facts in which they differ, and the differences of their jobs, which the program found.

/** Where the entries of a list are compared one by one: the list, what an entry is, its name's member, its text. */
const LISTED_FACTS = [
    ["cameras", "Camera", "node", ({width, height, stereo}) => `${width} \u00d7 ${height}${stereo ? " stereo" : ""}`],
    ["wedges", "Wedge", "node", ({variants, driver}) => `${plural(variants, "variant")} of ${driver}`],
    ["lops", "LOP node", "node", ({renderer, image}) => `${renderer} ${image}`.trim()],
    ["usdRenderSettings", "USD render settings", "node", ({camera, image}) => `${camera} ${image}`.trim()],
    ["skipped", "Without a job", "node", ({text}) => text],
    ["variables", "Variable", "name", ({value}) => value],
];

/** Facts, and what gave no job, as named texts. */
function factTexts(scene) {
    const facts = scene.facts ?? {};
    const texts = new Map([
        ["Houdini", facts.houdiniVersion ?? ""],
        ["Frames of the scene", frameRangeText(facts.frameRange)],
        ["Takes", (facts.takes ?? []).join(", ")],
    ]);
    for (const [list, title, name, text] of LISTED_FACTS) {
        for (const entry of facts[list] ?? scene[list] ?? []) texts.set(`${title} ${entry[name]}`, text(entry));
    }
    return texts;
}

/** Start and end that two texts have in common. */
function commonEnds(left, right) {
    const shortest = Math.min(left.length, right.length);
    let head = 0;
    while (head < shortest && left[head] === right[head]) head += 1;
    let tail = 0;
    while (tail < shortest - head && left[left.length - 1 - tail] === right[right.length - 1 - tail]) tail += 1;
    const isWord = (text, at) => /[\p{L}\p{N}]/u.test(text[at] ?? "");
    while (head > 0 && isWord(left, head - 1)) head -= 1;  // whole words and numbers
    while (tail > 0 && isWord(left, left.length - tail)) tail -= 1;
    return {head, tail};
}

function withDifference(tag, text, {head, tail}) {
    const end = text.length - tail;
    return el(tag, {class: "code"}, text.slice(0, head), el("mark", {}, text.slice(head, end)), text.slice(end));
}

function textChange(before, after) {
    const ends = commonEnds(before, after);
    return [["del", before], ["ins", after]].map(
        ([tag, text]) => (text === "" ? el(tag, {class: "quiet"}, "(none)") : withDifference(tag, text, ends)));
}

/** The comparison seen from its other scene. */
function turned({came, went, changed}) {
    const turnedField = ({name, before, after}) => ({name, before: after, after: before});
    const turnedJob = ({left, right, fields}) => ({left: right, right: left, fields: fields.map(turnedField)});
    return {came: went, went: came, changed: changed.map(turnedJob)};
}

/** What the program found of two scenes, by their places; undefined where it has not compared them. */
function comparisonOf(left, right) {
    const [first, second] = left < right ? [left, right] : [right, left];
    const found = data.comparisons.find((one) => one.left === first && one.right === second);
    return found && left > right ? turned(found) : found;
}

/** Rows of the jobs that differ: those of the right scene in its order, then those that only the left one has. */
function differentJobs(left, right, {came, went, changed}) {
    const only = (kind, scene) => (number) => ({kind, number, job: scene.jobs[number - 1]});
    const both = changed.map(
        ({left: was, right: number, fields}) => ({kind: "changed", number, was, job: right.jobs[number - 1], fields}));
    const ofRight = [...both, ...came.map(only("came", right))].sort((one, other) => one.number - other.number);
    return [...ofRight, ...went.map(only("went", left))];
}

const KINDS = {
    came: {sign: "+", title: "only right"},
    went: {sign: "\u2212", title: "only left"},
    changed: {sign: "\u2260", title: "changed"},
};

function kindSign({kind}) {
    const {sign, title} = KINDS[kind];
    return el("span", {class: `kind ${kind}`}, el("span", {"aria-hidden": "true"}, sign), " ", title);
}

function changeItem({name, before, after}) {
    return el("div", {class: "change"}, el("span", {class: "quiet"}, name), el("div", {}, textChange(before, after)));
}

function whatDiffers({job, fields}) {
    return fields ? fields.map(changeItem) : [job.frames, " ", filePath(job.output)];
}

const JOB_CELLS = [
    ["#", ({number, was}) => (!was || was === number ? number : `${number} (was ${was})`)],
    ["Driver", ({job}) => code(job.driver)],
    ["Renderer", ({job}) => parts(job.renderer)],
    ["Take", ({job}) => longText(job.take)],
];
const DIFFERENCE_CELLS = [["Change", kindSign], ...JOB_CELLS, ["What differs", whatDiffers]];

const FACT_COLUMNS = [
    ["Fact", ({name}) => longText(name)],
    ["Left and right", ({before, after}) => textChange(before ?? "", after ?? "")],
];

function factDifferences(left, right) {
    const before = factTexts(left);
    const after = factTexts(right);
    const names = [...new Set([...before.keys(), ...after.keys()])];
    const facts = names.map((name) => ({name, before: before.get(name), after: after.get(name)}));
    return {
        different: facts.filter((fact) => fact.before !== fact.after),
        equal: facts.filter((fact) => fact.before === fact.after)
    };
}

function equalOnes(count, noun, table) {
    if (count === 0) return null;
    return el("details", {}, el("summary", {}, `${plural(count, noun)} equal`), table());
}

function factPart(left, right) {
    if (!left.facts && !right.facts) return null;
    const {different, equal} = factDifferences(left, right);
    const told = equal.filter((fact) => fact.before);
    return [
        el("h3", {}, `Facts that differ (${different.length})`),
        different.length > 0 ? plainTable("Facts that differ", FACT_COLUMNS, different)
                             : el("p", {}, "All facts are equal."),
        equalOnes(
            told.length, "fact",
            () => plainTable("Equal facts", [FACT_COLUMNS[0], ["Both", ({before}) => code(before)]], told))
    ];
}

const NOT_COMPARED =
    "The jobs of these two scenes have not been compared: a report compares each scene with the next one, and every " +
    "pair where there are few, but none whose jobs are not known. vxscene diff compares any two.";

function jobPart(left, right) {
    if (left === right) return el("p", {}, "This is one and the same scene.");
    const found = comparisonOf(left.index, right.index);
    if (!found) return [el("h3", {}, "Jobs"), el("p", {}, NOT_COMPARED)];
    const different = differentJobs(left.scene, right.scene, found);
    const told = new Set(different.filter(({kind}) => kind !== "went").map(({number}) => number));
    const equal = right.scene.jobs.map((job, at) => ({job, number: at + 1})).filter(({number}) => !told.has(number));
    return [
        el("h3", {}, `Jobs that differ (${different.length})`),
        different.length > 0 ? plainTable("Jobs that differ", DIFFERENCE_CELLS, different)
                             : el("p", {}, "All jobs are equal."),
        equalOnes(equal.length, "job", () => plainTable("Equal jobs", JOB_CELLS, equal))
    ];
}

function sceneChoice(label, names, chosen, act) {
    const options = names.map((name, index) => el("option", {value: index, selected: index === chosen}, name));
    const select = el("select", {}, options);
    select.addEventListener("change", act);
    return el("label", {}, label, " ", select);
}

/** Scenes that failed before anything was read have nothing to compare. */
function canBeCompared(scene) {
    return Boolean(scene.facts) || scene.jobs.length > 0;
}

/** The section in which any two of the views' scenes are compared; null where there are no two. */
function comparison(views) {
    const chosen = views.filter(({scene}) => canBeCompared(scene));
    if (chosen.length < 2) return null;
    const names = chosen.map(({name}) => name);
    const result = el("div", {class: "comparison"});
    const choice = el("div", {class: "choice"});
    const show = () => {
        const [left, right] = [...choice.querySelectorAll("select")].map((select) => chosen[Number(select.value)]);
        result.replaceChildren();
        append(result, [factPart(left.scene, right.scene), jobPart(left, right)]);
    };
    choice.append(sceneChoice("Left", names, 0, show), sceneChoice("Right", names, 1, show));
    show();
    return el(
        "section", {id: "compare", "aria-labelledby": "compare-title", tabindex: "-1"},
        el("h2", {id: "compare-title"}, "What differs"), choice, result);
}
