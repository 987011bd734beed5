// The data of the page and what follows from it.

const data = JSON.parse(document.getElementById("data").textContent);

/** What the data leaves out. */
const BARE_JOB = {
    driver: "",
    renderer: "",
    frames: "",
    output: "",
    camera: "",
    take: "",
    size: "",
    step: 1
};

const scenes = data.scenes.map((scene) => ({...scene, jobs: scene.jobs.map((job) => ({...BARE_JOB, ...job}))}));

/** Frames are drawn and sorted by numbers; a job with a frame set or an undefined frame has none. */
function hasRange(job) {
    return Number.isFinite(job.start) && Number.isFinite(job.end);
}

function fileNameOf(path) {
    return path.slice(path.lastIndexOf("/") + 1) || path;
}

function folderOf(path) {
    return path.slice(0, path.lastIndexOf("/") + 1);
}

/** The folder that holds all of the paths, with its slash. */
function commonFolder(paths) {
    let common = folderOf(paths[0] ?? "");
    for (const path of paths) {
        while (!path.startsWith(common)) common = folderOf(common.slice(0, -1));
    }
    return common;
}

const sceneFolder = commonFolder(scenes.map(({scene}) => scene));

/** Paths of the scenes below the folder that holds them all. */
const names = scenes.map(({scene}) => scene.slice(sceneFolder.length) || scene);

function outcomeOf(scene) {
    return scene.outcome ?? "loaded";
}

/** The numbers from 1 of the jobs that other jobs wait for. */
function jobsWaitedFor(jobs) {
    return new Set(jobs.flatMap((job) => job.waitsFor ?? []));
}

/** Texts of the warnings of each job, by the job's number. */
function warningsByJob(scene) {
    const byJob = new Map();
    for (const {jobs, text} of scene.warnings ?? []) {
        for (const number of jobs ?? []) {
            if (!byJob.has(number)) byJob.set(number, []);
            byJob.get(number).push(text);
        }
    }
    return byJob;
}

/** Sum of what `valueOf` gives for each entry. */
function sumOf(entries, valueOf) {
    return entries.reduce((total, entry) => total + valueOf(entry), 0);
}

function framesOf(jobs) {
    return sumOf(jobs, (job) => job.frameCount ?? 0);
}

/** Jobs and their frames by renderer, the one with the most frames first. */
function rendererTotals(jobs) {
    const totals = [...groupedBy(jobs, (job) => job.renderer)].map(
        ([renderer, members]) => ({renderer, jobs: members.length, frames: framesOf(members)}));
    return totals.sort((left, right) => right.frames - left.frames);
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

/** Words that all have to be in a text. */
function wordsOf(query) {
    return query.toLowerCase().split(/\s+/).filter(Boolean);
}

function holdsAll(text, words) {
    return words.every((word) => text.includes(word));
}

/** 1,234,567: the same wherever the page is read. */
function grouped(number) {
    return number.toLocaleString("en", {maximumFractionDigits: 2});
}

function nounFor(count, one) {
    return count === 1 ? one : `${one}s`;
}

function plural(count, one) {
    return `${grouped(count)} ${nounFor(count, one)}`;
}
