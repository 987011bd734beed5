// The data of the page and what follows from it.

const data = JSON.parse(document.getElementById("data").textContent);

/** Frames are drawn and sorted by numbers; a job with a frame set or an undefined frame has none. */
function hasRange(job) {
    return Number.isFinite(job.start) && Number.isFinite(job.end);
}

/** Why no renderer takes the frames; empty for frames that it takes. */
function rangeFault(job) {
    if (job.step === 0) return "a step of 0";
    if (!hasRange(job)) return job.frames.includes("?") ? "a frame that is no number" : "";
    return job.start > job.end ? "starts behind its end" : "";
}

function fileNameOf(path) {
    return path.slice(path.lastIndexOf("/") + 1) || path;
}

function folderOf(path) {
    return path.slice(0, path.lastIndexOf("/") + 1);
}

/** File names, with a folder before those that several scenes share. */
function sceneNames(scenes) {
    const names = scenes.map((scene) => fileNameOf(scene.scene));
    return names.map((name, index) => {
        if (names.indexOf(name) === names.lastIndexOf(name)) return name;
        return scenes[index].scene.split("/").slice(-2).join("/");
    });
}

/** The numbers from 1 of the jobs that other jobs wait for. */
function jobsWaitedFor(jobs) {
    return new Set(jobs.flatMap((job) => job.waitsFor ?? []));
}

/** Texts of the warnings of each job, by the job's number. */
function warningsByJob(scene) {
    const byJob = new Map();
    for (const warning of scene.warnings ?? []) {
        for (const number of warning.jobs ?? []) byJob.set(number, [...(byJob.get(number) ?? []), warning.text]);
    }
    return byJob;
}

/** Sections that are drivers, and those that nobody could make out. */
function skippedDrivers(scene) {
    return (scene.skipped ?? []).filter((item) => !item.reader || item.reader === "driver");
}

function frameRangeText(range) {
    if (!range) return "";
    const step = range.step === 1 ? "" : ` x${range.step}`;
    return `${range.start}\u2013${range.end}${step}`;
}

/** "3, 5\u20138": numbers in rising order as runs [first, last]. */
function runsOf(numbers) {
    const runs = [];
    for (const number of numbers) {
        const last = runs[runs.length - 1];
        if (last && last[1] + 1 === number)
            last[1] = number;
        else
            runs.push([number, number]);
    }
    return runs;
}

function runsText(numbers) {
    return runsOf(numbers).map(([first, last]) => (first === last ? first : `${first}\u2013${last}`)).join(", ");
}

const collator = new Intl.Collator("en", {numeric: true, sensitivity: "base"});

/** Groups entries under the texts that `keyOf` gives, in the order of their first ones. */
function groupedBy(entries, keyOf) {
    const groups = new Map();
    for (const entry of entries) {
        const key = keyOf(entry);
        if (!groups.has(key)) groups.set(key, []);
        groups.get(key).push(entry);
    }
    return groups;
}
