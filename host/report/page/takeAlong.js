// Rows of a table as files, made in the browser. CSV is for spreadsheets and JSON for programs.

// A spreadsheet takes a cell that starts so for a formula; behind an apostrophe it is a text. Numbers stay numbers.
const FORMULA_START = /^[=+\-@\uff1d\uff0b\uff0d\uff20]/;
const NUMBER = /^-?\d+(\.\d+)?$/;

/** A field of RFC 4180. Characters that could hide, reorder or break it are shown as on the page. */
function csvField(value) {
    const text = visible(String(value ?? ""));
    const safe = FORMULA_START.test(text) && !NUMBER.test(text) ? `'${text}` : text;
    return /[",;']/.test(safe) ? `"${safe.replaceAll("\"", "\"\"")}"` : safe;
}

/** Spreadsheets know by the mark at the start that it is UTF-8. */
function csvText(columns, rows) {
    const lines = [columns.map(({title}) => title), ...rows.map((row) => columns.map(({value}) => value(row)))];
    return `\ufeff${lines.map((fields) => `${fields.map(csvField).join(",")}\r\n`).join("")}`;
}

function escapedCharacter(character) {
    const units = Array.from({length: character.length}, (_, at) => character.charCodeAt(at));
    return units.map((unit) => `\\u${unit.toString(16).padStart(4, "0")}`).join("");
}

/** Texts untouched; what could hide or reorder them is escaped. */
function jsonText(object) {
    return `${JSON.stringify(object, null, 1).replace(/(?!\n)[\p{Cc}\p{Cf}\p{Zl}\p{Zp}]/gu, escapedCharacter)}\n`;
}

const SECONDS_TO_SAVE = 60;

function save(fileName, type, text) {
    const address = URL.createObjectURL(new Blob([text], {type}));
    el("a", {href: address, download: fileName}).click();
    setTimeout(() => URL.revokeObjectURL(address), 1000 * SECONDS_TO_SAVE);
}

/** Buttons that save the rows that `rowsOf` gives when they are used. */
function takeAlongButtons({name, columns, recordOf}, rowsOf) {
    const saveCsv = () => save(`${name}.csv`, "text/csv", csvText(columns, rowsOf()));
    const saveJson = () => save(
        `${name}.json`, "application/json",
        jsonText({program: data.program, made: data.made, [name]: rowsOf().map(recordOf)}));
    return [["CSV", saveCsv], ["JSON", saveJson]].map(([kind, act]) => {
        const title = `Save the ${name} below as ${kind}`;
        const button = el("button", {type: "button", class: "save", title, "aria-label": title}, kind);
        button.addEventListener("click", act);
        return button;
    });
}
