// The frame ranges on one axis. Jobs of a driver that differ in nothing but their copies share a bar; what an export
// job hands to a render job is an arrow between their bars. Positions are percentages: the drawing needs no width.

const LANE = 22;  // pixels
const BAR = 10;
const FAULTY_BAR = 18;  // holds words
const DRIVERS_AT_FIRST = 16;
const TICKS = 6;
const MOST_STEPS = 300;  // more cannot be distinguished
const ARROW_INSET = 9;

/** `start` and `end` of all frames; the axis goes from `first` to `last`, half a frame beyond their middles. */
function frameAxis(jobs) {
    const drawn = jobs.filter(hasRange);
    const sound = drawn.filter((job) => !rangeFault(job));
    const frames = (sound.length > 0 ? sound : drawn).flatMap((job) => [job.start, job.end]);
    if (frames.length === 0) return null;
    const extent = {start: frames[0], end: frames[0]};
    for (const frame of frames) {
        extent.start = Math.min(extent.start, frame);
        extent.end = Math.max(extent.end, frame);
    }
    const room = Math.max(0, 10 - (extent.end - extent.start)) / 2;  // a single frame is no full bar
    return {start: extent.start, end: extent.end, first: extent.start - 0.5 - room, last: extent.end + 0.5 + room};
}

function percent(axis, frame) {
    const share = (frame - axis.first) / (axis.last - axis.first);
    return Math.round(Math.min(1, Math.max(0, share)) * 1e5) / 1e3;
}

/** Round frames, and the first and the last of all. */
function tickFrames(axis) {
    const ends = axis.start === axis.end ? [axis.start] : [axis.start, axis.end];
    const far = (frame) => ends.every((end) => Math.abs(percent(axis, frame) - percent(axis, end)) > 8);
    return [...ends, ...roundFrames(axis).filter(far)];
}

function roundFrames(axis) {
    const rough = (axis.last - axis.first) / TICKS;
    const power = 10 ** Math.floor(Math.log10(rough));
    const step = Math.max(1, [1, 2, 5, 10].map((factor) => factor * power).find((candidate) => candidate >= rough));
    const frames = [];
    for (let frame = Math.ceil(axis.start / step) * step; frame <= axis.end; frame += step) frames.push(frame);
    return frames;
}

function tickLabel(axis, frame) {
    const at = percent(axis, frame);
    const anchor = at < 4 ? "start" : at > 96 ? "end" : "middle";
    const isEnd = frame === axis.start || frame === axis.end;
    return svg("text", {x: `${at}%`, y: 14, "text-anchor": anchor, class: isEnd ? null : "between"}, frame);
}

function gridLine(axis, frame) {
    const at = `${percent(axis, frame)}%`;
    return svg("line", {x1: at, x2: at, y1: 0, y2: "100%"});
}

const BAR_KINDS = [
    ["export", "exports a scene description"],
    ["render", "renders or writes"],
    ["faulty", "frames that no renderer takes"],
];

/** Bars of a driver, with their rows. Bars are the same where renderer and frames are. */
function lanesOf(rows) {
    const groups = groupedBy(rows, ({job}) => `${job.renderer}\n${job.frames}`);
    return [...groups.values()].map((members, index) => ({index, rows: members, job: members[0].job}));
}

function barKind(lane, exports) {
    if (rangeFault(lane.job)) return "faulty";
    return exports.has(lane.rows[0].number) ? "export" : "render";
}

function laneTitle({job, rows}) {
    const numbers = runsText(rows.map((row) => row.number));
    const jobs = `${job.driver}: ${nounFor(rows.length, "job")} ${numbers}`;
    const frames = [`${job.renderer}, frames ${job.frames}`, rangeFault(job)].filter(Boolean).join(": ");
    const texts = rows.length === 1 ? [jobs, frames, job.output] : [jobs, frames];
    return texts.join(" \u00b7 ");
}

/** The frames that a step leaves, as dashes over a pale bar. */
function stepDashes(lane, axis, ends) {
    const {start, end, step} = lane.job;
    const frames = end - start + 1;
    if (step <= 1 || frames / step > MOST_STEPS) return null;
    const dash = Math.min(step * 0.6, Math.max(1, (axis.last - axis.first) / 250));
    return svg("line", {class: "steps", ...ends, pathLength: frames, "stroke-dasharray": `${dash} ${step - dash}`});
}

function bar(lane, axis, kind) {
    const {job, index} = lane;
    const middle = index * LANE + LANE / 2;
    const [low, high] = job.start <= job.end ? [job.start, job.end] : [job.end, job.start];
    const from = percent(axis, low - 0.5);
    const to = percent(axis, high + 0.5);
    const dashes =
        kind === "faulty" ? null : stepDashes(lane, axis, {x1: `${from}%`, x2: `${to}%`, y1: middle, y2: middle});
    const height = kind === "faulty" ? FAULTY_BAR : BAR;
    const shape = {x: `${from}%`, width: `${to - from}%`, y: middle - height / 2, height, rx: 2};
    return [svg("rect", {class: dashes ? "shape stepped" : "shape", ...shape}), dashes];
}

function laneWords(lane, axis, words) {
    const at = hasRange(lane.job) ? percent(axis, Math.min(lane.job.start, lane.job.end)) : 0;
    const x = at > 60 ? {x: "100%", "text-anchor": "end"} : {x: `${at}%`, dx: 6};
    return svg("text", {class: "words", ...x, y: lane.index * LANE + 15}, words.slice(0, 60));
}

/** The bar of a lane: a link to its first job. */
function barLink(lane, axis, exports) {
    const kind = barKind(lane, exports);
    const title = laneTitle(lane);
    const fault = rangeFault(lane.job);
    const words = fault ? `${lane.job.frames}: ${fault}` : `frames ${lane.job.frames}`;
    const drawing = [
        hasRange(lane.job) ? bar(lane, axis, kind) : null,
        fault || !hasRange(lane.job) ? laneWords(lane, axis, words) : null
    ];
    const first = lane.rows[0];
    return svg(
        "a", {
            class: `bar ${kind}`,
            href: `#s${first.scene}-j${first.number}`,
            tabindex: "-1",
            "aria-label": title,
            "data-tip": title
        },
        drawing);
}

function arrow(from, to, axis) {
    const x = (lane) => `${percent(axis, Math.min(lane.job.start, lane.job.end) - 0.5)}%`;
    const y1 = from.index * LANE + LANE / 2 + BAR / 2;
    const y2 = to.index * LANE + LANE / 2 - BAR / 2;
    return svg(
        "g", {class: "arrow", transform: `translate(${ARROW_INSET} 0)`}, svg("line", {x1: x(from), x2: x(to), y1, y2}),
        svg("svg", {x: x(to), y: y2, overflow: "visible"}, svg("path", {d: "M-4-6H4L0 0Z"})));
}

function arrowsOf(lanes, axis) {
    const laneOfJob = new Map(lanes.flatMap((lane) => lane.rows.map((row) => [row.number, lane])));
    return lanes.filter((lane) => hasRange(lane.job)).flatMap((lane) => {
        const sources =
            new Set(lane.rows.flatMap((row) => row.job.waitsFor ?? []).map((number) => laneOfJob.get(number)));
        return [...sources]
            .filter((source) => source && source.index < lane.index && hasRange(source.job))
            .map((source) => arrow(source, lane, axis));
    });
}

function laneLabel(lane) {
    const count = lane.rows.length > 1 ? el("span", {class: "copies"}, `\u00d7${lane.rows.length}`) : null;
    return el(
        "div", {class: "renderer", title: laneTitle(lane)}, el("span", {class: "name"}, lane.job.renderer), count);
}

/** Frame ranges of one scene: `element`, and `refresh()` after its rows have been filtered. */
class FrameChart {
    constructor(rows, jobs) {
        this.axis = frameAxis(jobs);
        this.isOpen = false;
        const exports = jobsWaitedFor(jobs);
        this.groups = [...groupedBy(rows, ({job}) => job.driver)].map(
            ([driver, members]) => ({
                rows: members,
                element: this.driverRow(driver, lanesOf(members), exports),
            }));
        this.more = el("button", {type: "button", class: "all"});
        this.more.addEventListener("click", () => this.open());
        this.element =
            el("figure", {class: "chart"}, this.legend(), this.axisRow(),
               el("div", {class: "drivers"}, this.grid(), this.groups.map((group) => group.element)), this.more);
        this.element.addEventListener("keydown", (event) => this.move(event));
        this.element.querySelector("a.bar")?.setAttribute("tabindex", "0");
        this.refresh();
    }

    driverRow(driver, lanes, exports) {
        const axis = this.axis ?? {first: 0, last: 1};
        const drawing =
            svg("svg", {class: "lanes", height: lanes.length * LANE, role: "group", "aria-label": `Bars of ${driver}`},
                arrowsOf(lanes, axis), lanes.map((lane) => barLink(lane, axis, exports)));
        return el(
            "div", {class: "driver"}, el("div", {class: "name code", title: driver}, driver),
            el("div", {class: "renderers"}, lanes.map(laneLabel)), drawing);
    }

    axisRow() {
        const ticks = this.axis ? tickFrames(this.axis).map((frame) => tickLabel(this.axis, frame)) : [];
        return el(
            "div", {class: "axis", "aria-hidden": "true"}, el("span", {}, "Driver"), el("span", {}, "Renderer"),
            svg("svg", {height: 20}, ticks));
    }

    grid() {
        const lines = this.axis ? tickFrames(this.axis).map((frame) => gridLine(this.axis, frame)) : [];
        return svg("svg", {class: "grid", "aria-hidden": "true"}, lines);
    }

    legend() {
        const used =
            BAR_KINDS.filter(([kind]) => this.groups.some((group) => group.element.querySelector(`a.${kind}`)));
        return el(
            "figcaption", {}, used.map(([kind, name]) => el("span", {class: `key ${kind}`}, name)),
            el("span", {class: "hint"}, "\u2191 \u2193 move between bars, Enter goes to the job"));
    }

    open() {
        this.isOpen = true;
        this.refresh();
        this.element.querySelector("a.bar[tabindex='0']")?.focus();
    }

    refresh() {
        const fitting = this.groups.filter((group) => group.rows.some((row) => row.isShown));
        const shown = new Set(this.isOpen ? fitting : fitting.slice(0, DRIVERS_AT_FIRST));
        for (const group of this.groups) {
            group.element.hidden = !shown.has(group);
            group.element.classList.toggle("fits", fitting.includes(group));
        }
        this.more.hidden = shown.size === fitting.length;
        this.more.textContent = `Show all ${fitting.length} drivers`;
        this.makeReachable();
    }

    /** One bar is in the order of the Tab key; the arrow keys lead to the others. */
    makeReachable(bar = this.shownBars()[0]) {
        for (const other of this.element.querySelectorAll("a.bar[tabindex='0']")) other.setAttribute("tabindex", "-1");
        bar?.setAttribute("tabindex", "0");
    }

    shownBars() {
        return this.groups.filter((group) => !group.element.hidden)
            .flatMap((group) => [...group.element.querySelectorAll("a.bar")]);
    }

    move(event) {
        const bars = this.shownBars();
        const at = bars.indexOf(event.target);
        const targets = {ArrowDown: at + 1, ArrowUp: at - 1, Home: 0, End: bars.length - 1};
        const bar = at < 0 ? undefined : bars[targets[event.key]];
        if (!bar) return;
        event.preventDefault();
        this.makeReachable(bar);
        bar.focus();
    }
}
