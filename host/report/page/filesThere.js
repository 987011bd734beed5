// What of the files that jobs leave was there when the report was made, where the disk was looked at.

function shareThere({files}) {
    return files && files.of > 0 ? files.there / files.of : NOTHING;
}

function filesText({job}) {
    const {files} = job;
    if (!files) return "";
    const known = files.of > 0 ? `${grouped(files.there)} of ${grouped(files.of)}` : "";
    return [known, files.unknown && `${plural(files.unknown, "name")} unknown`].filter(Boolean).join(", ");
}

/** A bar of what is there, with its numbers, and what is missing. */
function filesCell({job}) {
    const {files} = job;
    if (!files) return null;
    const filled = el("span", {class: "filled"});
    filled.style.width = `${100 * shareThere(job)}%`;
    const isWhole = files.there === files.of;
    const bar =
        files.of > 0 ? el("span", {class: isWhole ? "there whole" : "there", "aria-hidden": "true"}, filled) : null;
    const missing = (files.missing ?? "").split("\n").filter(Boolean);
    return [
        bar, el("span", {class: "quiet"}, filesText({job})),
        missing.map((line) => el("span", {class: "missing"}, longText(line)))
    ];
}

const FILES_COLUMN = {
    name: "files",
    title: "Files there",
    value: (row) => [filesText(row), ...(row.job.files?.missing ?? "").split("\n")].filter(Boolean).join(" \u00b7 "),
    keys: ({job}) => [shareThere(job)],
    cell: filesCell
};
