// Elements and texts. Every text that gets into the page passes through `visible`, and none is ever read as markup.

function visibleCharacter(character) {
    return `\u27e8U+${character.codePointAt(0).toString(16).toUpperCase().padStart(4, "0")}\u27e9`;
}

/** The text with a visible sign for each character that could hide, reorder or break it. */
function visible(text) {
    return text.replace(/[\p{Cc}\p{Cf}\p{Cs}\p{Co}\p{Cn}\p{Zl}\p{Zp}]/gu, visibleCharacter);
}

function fill(node, attributes, children) {
    for (const [name, value] of Object.entries(attributes)) {
        if (value === null || value === undefined || value === false) continue;
        node.setAttribute(name, value === true ? "" : visible(String(value)));
    }
    append(node, children);
    return node;
}

/** Appends nodes and texts, through nested lists; null, undefined and empty texts are left out. */
function append(node, children) {
    for (const child of children.flat(Infinity)) {
        if (child === null || child === undefined || child === "") continue;
        node.append(child instanceof Node ? child : visible(String(child)));
    }
}

/** An element; an attribute that is null, undefined or false is left out. */
function el(tag, attributes = {}, ...children) {
    return fill(document.createElement(tag), attributes, children);
}

function svg(tag, attributes = {}, ...children) {
    return fill(document.createElementNS("http://www.w3.org/2000/svg", tag), attributes, children);
}

const LONGEST_TEXT = 240;
const KEPT_AT_AN_END = 100;

/** A text of any length: a button shows the middle of a very long one. */
function longText(text) {
    if (text.length <= LONGEST_TEXT) return [text];
    const middle = el("span", {class: "middle", hidden: true}, text.slice(KEPT_AT_AN_END, -KEPT_AT_AN_END));
    const button = el("button", {type: "button", class: "more", "aria-expanded": "false"}, "\u2026");
    button.setAttribute("aria-label", `Show all ${text.length} characters`);
    button.addEventListener("click", () => {
        middle.hidden = !middle.hidden;
        button.setAttribute("aria-expanded", String(!middle.hidden));
    });
    return [text.slice(0, KEPT_AT_AN_END), button, middle, text.slice(-KEPT_AT_AN_END)];
}

/** The text, which may break after each slash. */
function breakable(text) {
    return text.split(/(?<=\/)/).flatMap((part, at) => (at > 0 ? [el("wbr"), part] : [part]));
}

/** A name in parts. */
function parts(text = "") {
    return text.length > LONGEST_TEXT ? longText(text) : breakable(text);
}

/** A node, path or expression. */
function code(text) {
    return el("span", {class: "code"}, parts(text));
}

/** The path of a file, whose name stands out. */
function filePath(text) {
    if (text.length > LONGEST_TEXT) return code(text);
    const folder = folderOf(text);
    return el(
        "span", {class: "code"}, el("span", {class: "quiet"}, breakable(folder)), el("wbr"), text.slice(folder.length));
}

function section(id, title, ...children) {
    const heading = el("h3", {id: `${id}-title`}, title);
    return el("section", {id, "aria-labelledby": `${id}-title`, tabindex: "-1"}, heading, children);
}

/** A table without controls. Columns are pairs of a title and a function from an entry to a cell's children. */
function plainTable(caption, columns, entries) {
    const heads = columns.map(([title]) => el("th", {scope: "col"}, title));
    const rows = entries.map((entry) => el("tr", {}, columns.map(([, cell]) => el("td", {}, cell(entry)))));
    return el(
        "div", {class: "scroll", role: "region", "aria-label": caption, tabindex: "0"},
        el("table", {}, el("caption", {class: "unseen"}, caption), el("thead", {}, el("tr", {}, heads)),
           el("tbody", {}, rows)));
}

function nounFor(count, one) {
    return count === 1 ? one : `${one}s`;
}

function plural(count, one) {
    return `${count} ${nounFor(count, one)}`;
}
