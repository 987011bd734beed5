// Two scenes side by side: the facts and jobs in which they differ.

const IN_SCENE_FOLDER = "<SceneFolder>";

/** What counts for a job's output: below the scene's folder, the folder itself does not. */
function outputOf(job) {
    return job.recorded?.startsWith(IN_SCENE_FOLDER) ? job.recorded : job.output;
}

const COMPARED_FIELDS = [
    ["Frames", (job) => job.frames],
    ["Output", outputOf],
    ["Camera", (job) => job.camera],
    ["Size", (job) => job.size],
];

function keyOfJob(job) {
    return [job.driver, job.renderer, job.take].join("\n");
}

function changesOf(left, right) {
    return COMPARED_FIELDS.map(([name, read]) => ({name, before: read(left), after: read(right)}))
        .filter(({before, after}) => before !== after);
}

function textOfFields(job) {
    return COMPARED_FIELDS.map(([, read]) => read(job)).join("\n");
}

/** Pairs the jobs of one key: first those that are equal, then the rest in their order. */
function pairUp(before, after) {
    const waiting = groupedBy(after, textOfFields);
    const pairs = [];
    const unequal = [];
    for (const job of before) {
        const other = waiting.get(textOfFields(job))?.shift();
        if (other)
            pairs.push({job, other, changes: []});
        else
            unequal.push(job);
    }
    const rest = [...waiting.values()].flat();
    const changed = unequal.map(
        (job, at) => (at < rest.length ? {job, other: rest[at], changes: changesOf(job, rest[at])} : {job}));
    return [...pairs, ...changed, ...rest.slice(unequal.length).map((other) => ({other}))];
}

/** @return pairs { job, other, changes }; `job` alone went, `other` alone came */
function comparedJobs(left, right) {
    const before = groupedBy(left.jobs, keyOfJob);
    const after = groupedBy(right.jobs, keyOfJob);
    const keys = new Set([...before.keys(), ...after.keys()]);
    return [...keys].flatMap((key) => pairUp(before.get(key) ?? [], after.get(key) ?? []));
}

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

function changeItem({name, before, after}) {
    return el("div", {class: "change"}, el("span", {class: "quiet"}, name), el("div", {}, textChange(before, after)));
}

const KINDS = {
    came: {sign: "+", title: "only right"},
    went: {sign: "\u2212", title: "only left"},
    changed: {sign: "\u2260", title: "changed"},
    equal: {sign: "=", title: "equal"},
};

function kindOf({job, other, changes}) {
    if (!job) return "came";
    if (!other) return "went";
    return changes.length > 0 ? "changed" : "equal";
}

function kindSign(kind) {
    return el(
        "span", {class: `kind ${kind}`}, el("span", {"aria-hidden": "true"}, KINDS[kind].sign), " ", KINDS[kind].title);
}

function wholeJob(job) {
    return [job.frames, " ", filePath(outputOf(job))];
}

const PAIR_COLUMNS = [
    ["Change", (pair) => kindSign(kindOf(pair))],
    ["Driver", ({job, other}) => code((job ?? other).driver)],
    ["Renderer", ({job, other}) => parts((job ?? other).renderer)],
    ["Take", ({job, other}) => longText((job ?? other).take)],
    ["What differs", ({job, other, changes}) => changes?.map(changeItem) ?? wholeJob(job ?? other)],
];

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

function jobPart(left, right) {
    const pairs = comparedJobs(left, right);
    const equal = pairs.filter((pair) => kindOf(pair) === "equal");
    const different = pairs.filter((pair) => kindOf(pair) !== "equal");
    return [
        el("h3", {}, `Jobs that differ (${different.length})`),
        different.length > 0 ? plainTable("Jobs that differ", PAIR_COLUMNS, different)
                             : el("p", {}, "All jobs are equal."),
        equalOnes(equal.length, "job", () => plainTable("Equal jobs", PAIR_COLUMNS.slice(1, 4), equal))
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
        const [left, right] =
            [...choice.querySelectorAll("select")].map((select) => chosen[Number(select.value)].scene);
        result.replaceChildren();
        append(result, [factPart(left, right), jobPart(left, right)]);
    };
    choice.append(sceneChoice("Left", names, 0, show), sceneChoice("Right", names, 1, show));
    show();
    return el(
        "section", {id: "compare", "aria-labelledby": "compare-title", tabindex: "-1"},
        el("h2", {id: "compare-title"}, "What differs"), choice, result);
}
