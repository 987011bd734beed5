// What is told of all scenes at once: the list of scenes with the totals, and the table of all jobs.

const allJobs = scenes.flatMap(({jobs}) => jobs);

function outcomeCell({scene}) {
    const outcome = outcomeOf(scene);
    if (outcome === "loaded") return outcome;
    if (outcome !== "failed") return el("span", {class: "quiet"}, longText(outcome));
    return el("span", {class: "fault"}, longText(scene.error ?? outcome));
}

const SCENE_COLUMNS = [
    {
        name: "scene",
        title: "Scene",
        value: ({index}) => names[index],
        cell: ({index}) => el("a", {href: `#s${index}`}, parts(names[index]))
    },
    {name: "jobs", title: "Jobs", value: ({scene}) => scene.jobs.length},
    {name: "frameCount", title: "Frames", value: ({frames}) => frames, cell: ({frames}) => grouped(frames)},
    {name: "warnings", title: "Warnings", value: ({scene}) => scene.warnings?.length ?? ""},
    {name: "skipped", title: "Without a job", value: ({scene}) => scene.skipped?.length ?? ""},
    {name: "range", title: "Scene frames", value: ({scene}) => frameRangeText(scene.facts?.frameRange)},
    {name: "houdini", title: "Houdini", value: ({scene}) => scene.facts?.houdiniVersion ?? ""},
    {name: "outcome", title: "Result", value: ({scene}) => scene.error ?? outcomeOf(scene), cell: outcomeCell},
];

const TAKEN_SCENES = {
    name: "scenes",
    columns: [{title: "File", value: ({scene}) => scene.scene}, ...SCENE_COLUMNS.slice(1)],
    recordOf: ({scene}) => scene
};

class SceneRow {
    constructor(scene, index) {
        Object.assign(this, {scene, index, isShown: true, frames: framesOf(scene.jobs)});
        this.classes = outcomeOf(scene) === "failed" ? "faulty" : "";
    }

    /** What the filter looks through: the row, the scene's renderers and cameras, warnings and what gave no job. */
    get text() {
        this.searched ??= this.allTexts().join("\n").toLowerCase();
        return this.searched;
    }

    allTexts() {
        const {scene, facts, jobs} = this.scene;
        const renderers = new Set(jobs.map(({renderer}) => renderer));
        const cameras = (facts?.cameras ?? []).map(({node}) => node);
        const beside = entriesBeside(this.scene, this.index).map(({searched}) => searched);
        return [...SCENE_COLUMNS.map(({value}) => value(this)), scene, ...renderers, ...cameras, ...beside];
    }
}

function countOf(scenes, isCounted) {
    return scenes.filter(isCounted).length;
}

/** What leads to a column sorts the scenes by it. */
function totalFigures(sortBy) {
    const noted = (value, name, column) =>
        ({value, name, act: value > 0 ? () => sortBy(column) : null, kind: value > 0 ? "notice" : null});
    const warnings = sumOf(scenes, (scene) => scene.warnings?.length ?? 0);
    const skipped = sumOf(scenes, (scene) => scene.skipped?.length ?? 0);
    const empty = countOf(scenes, (scene) => scene.jobs.length === 0 && outcomeOf(scene) !== "failed");
    const failed = countOf(scenes, (scene) => outcomeOf(scene) === "failed");
    return figures([
        {value: scenes.length, name: nounFor(scenes.length, "scene")},
        {value: allJobs.length, name: nounFor(allJobs.length, "job"), to: "#jobs"}, ...frameFigures(allJobs),
        noted(warnings, nounFor(warnings, "warning"), "warnings"),
        noted(skipped, `${nounFor(skipped, "node")} without a job`, "skipped"),
        empty > 0 && {value: empty, name: `${nounFor(empty, "scene")} without jobs`},
        failed > 0 && {value: failed, name: "failed"}
    ]);
}

class ScenesView {
    constructor() {
        this.id = "scenes";
        this.title = "Scenes";
        this.table = new FilteredTable({
            id: this.id,
            noun: "scene",
            table: new RowTable({
                kind: "scenes",
                caption: "Scenes",
                columns: SCENE_COLUMNS,
                rows: scenes.map((scene, index) => new SceneRow(scene, index))
            }),
            taken: TAKEN_SCENES,
            makeEntries: () => scenes.flatMap(entriesBeside),
            isOfAll: true
        });
        this.element =
            el("section", {class: "view", "aria-labelledby": "scenes-title"},
               el("h2", {id: "scenes-title", tabindex: "-1"}, "Scenes"),
               sceneFolder ? el("p", {class: "quiet"}, "in ", code(sceneFolder)) : null,
               totalFigures((column) => this.table.table.sortBy(column, -1)), rendererFigures(allJobs, findJobs),
               this.table.element);
    }
}

class JobsView {
    constructor() {
        this.id = "jobs";
        this.title = "Jobs";
        this.table = new FilteredTable({
            id: this.id,
            noun: "job",
            table: new RowTable({
                kind: "jobs of-all",
                caption: "Jobs of all scenes",
                columns: [SCENE_COLUMN, ...JOB_COLUMNS],
                rows: scenes.flatMap(jobRows)
            }),
            taken: TAKEN_JOBS,
            makeEntries: () => scenes.flatMap(entriesBeside),
            isOfAll: true
        });
        this.element =
            el("section", {class: "view", "aria-labelledby": "jobs-title"},
               el("h2", {id: "jobs-title", tabindex: "-1"}, "Jobs"), this.table.element);
    }
}
