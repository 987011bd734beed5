// The job table: cells, order, filter.

const NOTHING = Number.POSITIVE_INFINITY;  // sorts after all numbers, in either direction

/** `keys`: what the column sorts by, compared one after the other. */
const JOB_COLUMNS = [
    {name: "number", title: "#", keys: (row) => [row.number], cell: numberCell},
    {name: "driver", title: "Driver", keys: ({job}) => [job.driver], cell: ({job}) => code(job.driver)},
    {name: "renderer", title: "Renderer", keys: ({job}) => [job.renderer], cell: ({job}) => parts(job.renderer)},
    {name: "frames", title: "Frames", keys: ({job}) => frameKeys(job), cell: framesCell},
    {name: "output", title: "Output", keys: ({job}) => [job.output], cell: ({job}) => filePath(job.output)},
    {name: "camera", title: "Camera", keys: ({job}) => [job.camera], cell: ({job}) => code(job.camera)},
    {name: "take", title: "Take", keys: ({job}) => [job.take], cell: ({job}) => longText(job.take)},
    {name: "size", title: "Size", keys: ({job}) => [pixelsOf(job)], cell: ({job}) => job.size.replace("x", " \u00d7 ")},
    {name: "waits", title: "Waits for", keys: ({job}) => [job.waitsFor?.[0] ?? NOTHING], cell: waitsCell},
];

function frameKeys(job) {
    return hasRange(job) ? [job.start, job.end, job.step] : [NOTHING, NOTHING, NOTHING];
}

function pixelsOf(job) {
    const [width, height] = job.size.split("x").map(Number);
    return width * height || NOTHING;
}

function numberCell({number, warnings}) {
    if (!warnings) return [number];
    const mark =
        el("span", {class: "mark", role: "img", "aria-label": "has a warning", title: warnings.join(" \u00b7 ")}, "!");
    return [mark, number];
}

function framesCell({job}) {
    const fault = rangeFault(job);
    return fault ? [job.frames, el("span", {class: "fault"}, fault)] : [longText(job.frames)];
}

function waitsCell({job, scene}) {
    const links =
        (job.waitsFor ?? [])
            .map(
                (number) =>
                    el("a", {class: "waits", href: `#s${scene}-j${number}`, "aria-label": `Waits for job ${number}`},
                       "\u2192\u00a0", number));
    return [links, (job.waitsForIDs ?? []).map((id) => el("span", {class: "quiet"}, `id\u00a0${id}`))];
}

function compareKeys(left, right, direction) {
    for (const [index, key] of left.entries()) {
        const other = right[index];
        const isEmpty = (value) => value === NOTHING || value === "";
        if (isEmpty(key) !== isEmpty(other)) return isEmpty(key) ? 1 : -1;
        const order = typeof key === "number" ? Math.sign(key - other) || 0 : collator.compare(key, other);
        if (order !== 0) return order * direction;
    }
    return 0;
}

function jobRow(row) {
    const cells = JOB_COLUMNS.map((column) => el("td", {class: `c-${column.name}`}, column.cell(row)));
    const classes = [row.warnings && "warned", rangeFault(row.job) && "faulty"].filter(Boolean).join(" ");
    return el("tr", {id: `s${row.scene}-j${row.number}`, tabindex: "-1", class: classes || null}, cells);
}

/** What the filter looks at: all that the row shows. */
function textOfJob(job) {
    const waits = (job.waitsFor ?? []).join(" ");
    return [job.driver, job.renderer, job.frames, job.output, job.camera, job.take, job.size, waits]
        .join("\n")
        .toLowerCase();
}

/** Words that all have to be in a text. */
function wordsOf(query) {
    return query.toLowerCase().split(/\s+/).filter(Boolean);
}

function holdsAll(text, words) {
    return words.every((word) => text.includes(word));
}

/** Job rows of one scene with `table`, `filter(words)`, and for each row its `isShown`. */
class JobTable {
    constructor(scene, index) {
        const warnings = warningsByJob(scene);
        this.rows = scene.jobs.map((job, position) => {
            const row = {job, scene: index, number: position + 1, warnings: warnings.get(position + 1), isShown: true};
            return Object.assign(row, {text: `${row.number}\n${textOfJob(job)}`, element: jobRow(row)});
        });
        this.body = el("tbody", {}, this.rows.map((row) => row.element));
        this.heads = JOB_COLUMNS.map((column) => this.head(column));
        this.table =
            el("table", {class: "jobs", id: `s${index}-table`}, el("caption", {class: "unseen"}, "Jobs"),
               el("thead", {}, el("tr", {}, this.heads)), this.body);
        this.heads[0].setAttribute("aria-sort", "ascending");
    }

    head(column) {
        const button = el("button", {type: "button", class: "sort"}, column.title);
        const head = el("th", {scope: "col", class: `c-${column.name}`}, button);
        button.addEventListener("click", () => this.sort(column, head));
        return head;
    }

    sort(column, head) {
        const direction = head.getAttribute("aria-sort") === "ascending" ? -1 : 1;
        for (const other of this.heads) other.removeAttribute("aria-sort");
        head.setAttribute("aria-sort", direction === 1 ? "ascending" : "descending");
        const keyed = this.rows.map((row) => ({row, keys: column.keys(row)}));
        keyed.sort((left, right) => compareKeys(left.keys, right.keys, direction));
        this.body.replaceChildren(...keyed.map(({row}) => row.element));
    }

    /** @return how many rows it leaves */
    filter(words) {
        for (const row of this.rows) {
            row.isShown = holdsAll(row.text, words);
            row.element.hidden = !row.isShown;
        }
        return this.rows.filter((row) => row.isShown).length;
    }
}
