// Jobs as rows: those of one scene, and those of all.

function frameKeys({job}) {
    return hasRange(job) ? [job.start, job.end, job.step] : [NOTHING, NOTHING, NOTHING];
}

function pixelsOf({job}) {
    const [width, height] = job.size.split("x").map(Number);
    return width * height || NOTHING;
}

function numberCell({number, warnings}) {
    if (warnings.length === 0) return [number];
    const mark =
        el("span", {class: "mark", role: "img", "aria-label": "has a warning", title: warnings.join(" \u00b7 ")}, "!");
    return [mark, number];
}

function framesCell({job}) {
    return job.fault ? [job.frames, el("span", {class: "fault"}, job.fault)] : [longText(job.frames)];
}

function waitsText({job}) {
    return [...(job.waitsFor ?? []), ...(job.waitsForIDs ?? []).map((id) => `id ${id}`)].join(", ");
}

function waitsCell({job, scene}) {
    const link = (number) =>
        el("a", {class: "waits", href: `#s${scene}-j${number}`, "aria-label": `Waits for job ${number}`},
           "\u2192\u00a0", number);
    return [
        (job.waitsFor ?? []).map(link),
        (job.waitsForIDs ?? []).map((id) => el("span", {class: "quiet"}, `id\u00a0${id}`))
    ];
}

const JOB_COLUMNS = [
    {name: "number", title: "#", value: ({number}) => number, cell: numberCell},
    {name: "driver", title: "Driver", value: ({job}) => job.driver, cell: ({job}) => code(job.driver)},
    {name: "renderer", title: "Renderer", value: ({job}) => job.renderer, cell: ({job}) => parts(job.renderer)},
    {name: "frames", title: "Frames", value: ({job}) => job.frames, keys: frameKeys, cell: framesCell},
    {name: "output", title: "Output", value: ({job}) => job.output, cell: ({job}) => filePath(job.output)},
    {name: "camera", title: "Camera", value: ({job}) => job.camera, cell: ({job}) => code(job.camera)},
    {name: "take", title: "Take", value: ({job}) => job.take},
    {
        name: "size",
        title: "Size",
        value: ({job}) => job.size,
        keys: (row) => [pixelsOf(row)],
        cell: ({job}) => job.size.replace("x", " \u00d7 ")
    },
    {
        name: "waits",
        title: "Waits for",
        value: waitsText,
        keys: ({job}) => [job.waitsFor?.[0] ?? NOTHING],
        cell: waitsCell
    },
];

if (scenes.some(({jobs}) => jobs.some(({files}) => files))) JOB_COLUMNS.splice(5, 0, FILES_COLUMN);

const SCENE_COLUMN = {
    name: "scene",
    title: "Scene",
    value: ({scene}) => names[scene],
    keys: ({scene, number}) => [names[scene], number],
    cell: ({scene, number}) => el("a", {href: `#s${scene}-j${number}`}, parts(names[scene]))
};

/** What a file of jobs tells beside the columns of the page. */
const TAKEN_COLUMNS = [
    {title: "Scene", value: ({scene}) => scenes[scene].scene},
    ...JOB_COLUMNS,
    {title: "Frame count", value: ({job}) => job.frameCount},
    {title: "Warnings", value: ({job, warnings}) => [job.fault, ...warnings].filter(Boolean).join(" \u00b7 ")},
];

const TAKEN_JOBS = {
    name: "jobs",
    columns: TAKEN_COLUMNS,
    recordOf: ({scene, number, job, warnings}) => ({scene: scenes[scene].scene, job: number, ...job, warnings})
};

/** A job as a row of a table. What the filter looks at is put together when it is first used. */
class JobRow {
    constructor(job, scene, number, warnings) {
        Object.assign(this, {job, scene, number, warnings, isShown: true});
        this.classes = [warnings.length > 0 && "warned", job.fault && "faulty"].filter(Boolean).join(" ");
    }

    get text() {
        this.searched ??= [
            this.number, SCENE_COLUMN.value(this), ...TAKEN_COLUMNS.slice(2).map(({value}) => value(this))
        ].join("\n").toLowerCase();
        return this.searched;
    }
}

function jobRows(scene, index) {
    const warnings = warningsByJob(scene);
    return scene.jobs.map((job, at) => new JobRow(job, index, at + 1, warnings.get(at + 1) ?? []));
}

const WARNING = {
    name: "Warning",
    counted: (count) => plural(count, "warning")
};
const WITHOUT_JOB = {
    name: "Without a job",
    counted: (count) => `${grouped(count)} without a job`
};

/** Warnings, and what gave no job, for the filter: as lists of `kind`, `scene`, `node`, `text`, `to`, `searched`. */
function entriesBeside(scene, index) {
    const entry = (kind, mark) => (item, at) => ({
        kind,
        scene: index,
        node: item.node,
        text: item.text,
        to: `#s${index}-${mark}${at + 1}`,
        searched:
            [kind.name, names[index], item.node ?? "", item.text, ...(item.details ?? [])].join("\n").toLowerCase()
    });
    return [...(scene.warnings ?? []).map(entry(WARNING, "w")), ...(scene.skipped ?? []).map(entry(WITHOUT_JOB, "x"))];
}
