// The frame ranges on one axis. Jobs of a driver that differ in nothing but their copies share a bar; what an export
// job hands to a render job is an arrow between their bars. Positions are percentages: the drawing needs no width.

const LANE = 22;  // pixels
const BAR = 10;
const WORDS = 18;  // a line of words below a bar
const DRIVERS_AT_FIRST = 16;
const TICKS = 6;
const MOST_LANES = 50;   // of a driver
const MOST_STEPS = 300;  // more cannot be distinguished
const ARROW_INSET = 9;

/** `start` and `end` of all frames; the axis goes from `first` to `last`, half a frame beyond their middles. */
function frameAxis(jobs) {
    const drawn = jobs.filter(hasRange);
    if (drawn.length === 0) return null;
    const sound = drawn.filter((job) => !job.fault);
    const extent = {start: Infinity, end: -Infinity};
    for (const {start, end} of sound.length > 0 ? sound : drawn) {
        extent.start = Math.min(extent.start, start, end);
        extent.end = Math.max(extent.end, start, end);
    }
    const room = Math.max(0, 10 - (extent.end - extent.start)) / 2;  // a single frame is no full bar
    return {start: extent.start, end: extent.end, first: extent.start - 0.5 - room, last: extent.end + 0.5 + room};
}

// Nothing is drawn along it.
const NO_FRAMES = {
    first: 0,
    last: 1
};

function percent(axis, frame) {
    const share = (frame - axis.first) / (axis.last - axis.first) || 0;  // of huge frames the differences are none
    return Math.round(Math.min(1, Math.max(0, share)) * 1e5) / 1e3;
}

/** Round frames, and the first and the last of all. */
function tickFrames(axis) {
    if (axis === NO_FRAMES) return [];
    const ends = axis.start === axis.end ? [axis.start] : [axis.start, axis.end];
    const far = (frame) => ends.every((end) => Math.abs(percent(axis, frame) - percent(axis, end)) > 8);
    return [...ends, ...roundFrames(axis).filter(far)];
}

function roundFrames(axis) {
    const rough = (axis.last - axis.first) / TICKS;
    const power = 10 ** Math.floor(Math.log10(rough));
    const step = Math.max(1, [1, 2, 5, 10].map((factor) => factor * power).find((candidate) => candidate >= rough));
    const first = Math.ceil(axis.start / step) * step;
    const frames = Array.from({length: 2 * TICKS}, (_, at) => first + at * step);  // a loop up to the end may have none
    return frames.filter((frame) => frame <= axis.end);
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

/** Whether any of the job is on the axis: faulty frames may be beyond it. */
function isDrawn(job, axis) {
    return hasRange(job) && Math.max(job.start, job.end) >= axis.first && Math.min(job.start, job.end) <= axis.last;
}

/** What stands below a bar, or in its place. */
function laneWords(job, hasBar) {
    if (job.fault) return `${job.frames}: ${job.fault}`;
    return hasBar ? "" : `frames ${job.frames}`;
}

/**
 * Bars of a driver, with their rows, and how many there are beyond. They are the same where renderer and frames are.
 */
function lanesOf(rows, axis) {
    const groups = [...groupedBy(rows, ({job}) => `${job.renderer}\n${job.frames}`).values()];
    let top = 0;
    const lanes = groups.slice(0, MOST_LANES).map((members, index) => {
        const {job} = members[0];
        const hasBar = isDrawn(job, axis);
        const words = laneWords(job, hasBar);
        const lane = {index, rows: members, job, top, hasBar, words, height: words && hasBar ? LANE + WORDS : LANE};
        top += lane.height;
        return lane;
    });
    return {lanes, left: groups.length - lanes.length};
}

function barKind({job, number}, exports) {
    if (job.fault) return "faulty";
    return exports.has(number) ? "export" : "render";
}

function laneTitle({job, rows}) {
    const numbers = runsText(rows.map((row) => row.number));
    const jobs = `${job.driver}: ${nounFor(rows.length, "job")} ${numbers}`;
    const frames = [`${job.renderer}, frames ${job.frames}`, job.fault].filter(Boolean).join(": ");
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
    const {job, top} = lane;
    const middle = top + LANE / 2;
    const [low, high] = job.start <= job.end ? [job.start, job.end] : [job.end, job.start];
    const from = percent(axis, low - 0.5);
    const to = percent(axis, high + 0.5);
    const dashes =
        kind === "faulty" ? null : stepDashes(lane, axis, {x1: `${from}%`, x2: `${to}%`, y1: middle, y2: middle});
    const shape = {x: `${from}%`, width: `${to - from}%`, y: middle - BAR / 2, height: BAR, rx: 2};
    return [svg("rect", {class: dashes ? "shape stepped" : "shape", ...shape}), dashes];
}

/** On the side of the lane where its bar is. The bar's own name tells the same to those who hear it. */
function wordsBelow({job, words, top, hasBar}, axis) {
    if (!words) return null;
    const isFarRight = hasBar && percent(axis, Math.min(job.start, job.end)) > 50;
    const kind = ["words", job.fault && "fault", isFarRight && "right"].filter(Boolean).join(" ");
    const element = el("div", {class: kind, "aria-hidden": "true"}, words);
    element.style.top = `${top + (hasBar ? LANE - 4 : 2)}px`;
    return element;
}

/** The bar of a lane: a link to its first job. */
function barLink(lane, axis, exports) {
    const kind = barKind(lane.rows[0], exports);
    const title = laneTitle(lane);
    const first = lane.rows[0];
    return svg(
        "a", {
            class: `bar ${kind}`,
            href: `#s${first.scene}-j${first.number}`,
            tabindex: "-1",
            "aria-label": title,
            "data-tip": title
        },
        lane.hasBar ? bar(lane, axis, kind) : svg("rect", {class: "bare", y: lane.top, height: LANE, width: "100%"}));
}

function arrow(from, to, axis) {
    const x = (lane) => `${percent(axis, Math.min(lane.job.start, lane.job.end) - 0.5)}%`;
    const y1 = from.top + LANE / 2 + BAR / 2;
    const y2 = to.top + LANE / 2 - BAR / 2;
    return svg(
        "g", {class: "arrow", transform: `translate(${ARROW_INSET} 0)`}, svg("line", {x1: x(from), x2: x(to), y1, y2}),
        svg("svg", {x: x(to), y: y2, overflow: "visible"}, svg("path", {d: "M-4-6H4L0 0Z"})));
}

function arrowsOf(lanes, axis) {
    const laneOfJob = new Map(lanes.flatMap((lane) => lane.rows.map((row) => [row.number, lane])));
    return lanes.filter((lane) => lane.hasBar).flatMap((lane) => {
        const sources =
            new Set(lane.rows.flatMap((row) => row.job.waitsFor ?? []).map((number) => laneOfJob.get(number)));
        return [...sources]
            .filter((source) => source && source.index < lane.index && source.hasBar)
            .map((source) => arrow(source, lane, axis));
    });
}

function laneLabel(lane) {
    const count = lane.rows.length > 1 ? el("span", {class: "copies"}, `\u00d7${lane.rows.length}`) : null;
    const label =
        el("div", {class: "renderer", title: laneTitle(lane)}, el("span", {class: "name"}, lane.job.renderer), count);
    label.style.height = `${lane.height}px`;
    return label;
}

/** The end of the path tells drivers apart: where there is no room for all of it, the start is left out. */
function driverName(driver) {
    const folder = folderOf(driver);
    return el(
        "div", {class: "name code", title: driver}, el("span", {class: "folder"}, folder),
        el("span", {class: "leaf"}, driver.slice(folder.length)));
}

/** Frame ranges of one scene: `element`, and `refresh()` after its rows have been filtered. */
class FrameChart {
    constructor(rows, jobs) {
        this.axis = frameAxis(jobs) ?? NO_FRAMES;
        this.most = DRIVERS_AT_FIRST;
        this.exports = jobsWaitedFor(jobs);
        this.groups = [...groupedBy(rows, ({job}) => job.driver)].map(([driver, members]) => ({driver, rows: members}));
        this.more = el("button", {type: "button", class: "all"});
        this.more.addEventListener("click", () => this.open());
        this.drivers = el("div", {class: "drivers"});
        this.element = el("figure", {class: "chart"}, this.legend(rows), this.axisRow(), this.drivers, this.more);
        this.element.addEventListener("keydown", (event) => this.move(event));
        this.refresh();
    }

    /** A driver with its bars; made when it is first shown. */
    elementOf(group) {
        group.element ??= this.driverRow(group.driver, lanesOf(group.rows, this.axis));
        return group.element;
    }

    driverRow(driver, {lanes, left}) {
        const {axis} = this;
        const height = sumOf(lanes, (lane) => lane.height);
        const drawing =
            svg("svg", {class: "lanes", height, role: "group", "aria-label": `Bars of ${driver}`},
                arrowsOf(lanes, axis), lanes.map((lane) => barLink(lane, axis, this.exports)));
        const words = lanes.map((lane) => wordsBelow(lane, axis));
        return el(
            "div", {class: "driver"}, driverName(driver), el("div", {class: "renderers"}, lanes.map(laneLabel)),
            el("div", {class: "drawing"}, drawing, words),
            left > 0 ? el("div", {class: "quiet beyond"}, `and ${plural(left, "further range")}: see the table`)
                     : null);
    }

    axisRow() {
        const ticks = tickFrames(this.axis).map((frame) => tickLabel(this.axis, frame));
        return el(
            "div", {class: "axis", "aria-hidden": "true"}, el("span", {}, "Driver"), el("span", {}, "Renderer"),
            svg("svg", {height: 20}, ticks));
    }

    grid() {
        const lines = tickFrames(this.axis).map((frame) => gridLine(this.axis, frame));
        return svg("svg", {class: "grid", "aria-hidden": "true"}, lines);
    }

    legend(rows) {
        const kinds = new Set(rows.map((row) => barKind(row, this.exports)));
        const used = BAR_KINDS.filter(([kind]) => kinds.has(kind));
        return el(
            "figcaption", {}, used.map(([kind, name]) => el("span", {class: `key ${kind}`}, name)),
            el("span", {class: "hint"}, "\u2191 \u2193 move between bars, Enter goes to the job"));
    }

    showAll() {
        this.most = Infinity;
        this.refresh();
    }

    open() {
        this.showAll();
        this.element.querySelector("a.bar[tabindex='0']")?.focus();
    }

    refresh() {
        const fitting = this.groups.filter((group) => group.rows.some((row) => row.isShown));
        const shown = fitting.slice(0, this.most);
        this.drivers.replaceChildren(this.grid(), ...shown.map((group) => this.elementOf(group)));
        this.more.hidden = shown.length === fitting.length;
        this.more.textContent = `Show all ${grouped(fitting.length)} drivers`;
        this.makeReachable();
    }

    /** One bar is in the order of the Tab key; the arrow keys lead to the others. */
    makeReachable(bar = this.shownBars()[0]) {
        for (const other of this.element.querySelectorAll("a.bar[tabindex='0']")) other.setAttribute("tabindex", "-1");
        bar?.setAttribute("tabindex", "0");
    }

    shownBars() {
        return [...this.element.querySelectorAll("a.bar")];
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
