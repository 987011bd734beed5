// Tables of any length to sort and filter. Only the rows around those in view are elements.

const NOTHING = Number.POSITIVE_INFINITY;  // sorts after all numbers, in either direction
const ROWS_AT_ONCE = 100;

function compareKeys(left, right, direction) {
    const isEmpty = (value) => value === NOTHING || value === "";
    for (const [index, key] of left.entries()) {
        const other = right[index];
        if (isEmpty(key) !== isEmpty(other)) return isEmpty(key) ? 1 : -1;
        const order = typeof key === "number" ? Math.sign(key - other) || 0 : collator.compare(key, other);
        if (order !== 0) return order * direction;
    }
    return 0;
}

/**
 * Columns have `name`, `title` and `value`, a row's text or number; `cell`, what stands in it, and `keys`, what it is
 * sorted by, one after the other, where that is not the value. Rows have `id`, `classes` and `text`, which the filter
 * looks through; the table adds `isShown`.
 */
class RowTable {
    constructor({kind, caption, columns, rows}) {
        this.columns = columns;
        this.rows = rows;
        this.ordered = rows;
        this.body = el("tbody", {role: "rowgroup"});
        this.heads = columns.map((column) => this.head(column));
        this.heads[0].setAttribute("aria-sort", "ascending");
        this.table =
            el("table", {class: `rows ${kind}`, role: "table"}, el("caption", {class: "unseen"}, caption),
               el("thead", {role: "rowgroup"}, el("tr", {role: "row"}, this.heads)), this.body);
        this.before = this.moveButton(() => this.draw(Math.max(0, this.first - ROWS_AT_ONCE)));
        this.after = this.moveButton(() => this.grow());
        this.element = el("div", {class: "wide"}, this.before, this.table, this.after);
        new IntersectionObserver((seen) => seen.some((one) => one.isIntersecting) && this.grow(), {
            rootMargin: "600px"
        }).observe(this.after);
        this.filter([]);
    }

    head(column) {
        const button = el("button", {type: "button", class: "sort"}, column.title);
        const head = el("th", {scope: "col", role: "columnheader", class: `c-${column.name}`}, button);
        button.addEventListener("click", () => {
            this.sortBy(column.name, head.getAttribute("aria-sort") === "ascending" ? -1 : 1);
        });
        return head;
    }

    moveButton(act) {
        const button = el("button", {type: "button", class: "all"});
        button.addEventListener("click", act);
        return button;
    }

    /** By the column with this name: 1 for rising order, -1 for falling. */
    sortBy(name, direction) {
        const at = this.columns.findIndex((column) => column.name === name);
        for (const head of this.heads) head.removeAttribute("aria-sort");
        this.heads[at].setAttribute("aria-sort", direction === 1 ? "ascending" : "descending");
        const {keys, value} = this.columns[at];
        const keyed = this.rows.map((row) => ({row, keys: keys ? keys(row) : [value(row)]}));
        keyed.sort((left, right) => compareKeys(left.keys, right.keys, direction));
        this.ordered = keyed.map(({row}) => row);
        this.refresh();
    }

    filter(words) {
        for (const row of this.rows) row.isShown = words.length === 0 || holdsAll(row.text, words);
        this.refresh();
    }

    refresh() {
        this.shown = this.ordered.filter((row) => row.isShown);
        this.table.setAttribute("aria-rowcount", this.shown.length + 1);
        this.draw(0);
    }

    /** Shows rows from the given place on. */
    draw(first) {
        this.first = first;
        this.last = first;
        this.body.replaceChildren();
        this.grow();
    }

    grow(count = ROWS_AT_ONCE) {
        const rows = this.shown.slice(this.last, this.last + count);
        this.body.append(...rows.map((row, at) => this.elementOf(row, this.last + at)));
        this.last += rows.length;
        const left = this.shown.length - this.last;
        this.before.hidden = this.first === 0;
        this.before.textContent = `Show the rows before (${grouped(this.first)})`;
        this.after.hidden = left === 0;
        this.after.textContent = `Show more rows (${grouped(left)})`;
    }

    showAll() {
        this.draw(0);
        this.grow(this.shown.length);
    }

    /** @return the row's element, in the table */
    reveal(row) {
        const at = this.shown.indexOf(row);
        if (at >= 0 && (at < this.first || at >= this.last)) this.draw(Math.max(0, at - ROWS_AT_ONCE / 4));
        return at < 0 ? null : row.element;
    }

    elementOf(row, place) {
        row.element ??= this.makeElement(row);
        row.element.setAttribute("aria-rowindex", place + 2);
        return row.element;
    }

    makeElement(row) {
        const cells = this.columns.map(
            (column) =>
                el("td", {role: "cell", class: `c-${column.name}`, "data-title": column.title},
                   column.cell ? column.cell(row) : longText(String(column.value(row)))));
        return el("tr", {id: row.id, role: "row", tabindex: "-1", class: row.classes || null}, cells);
    }
}

const MOST_HINTS = 3;

/** What the filter finds beside the table: entries of `kind`, `node`, `text` and where they are. */
function hintItems(entries, isOfAll) {
    const shown = entries.slice(0, MOST_HINTS).map(({kind, scene, node, text, to}) => {
        const link = el("a", {href: to}, longText(node || "scene"));
        const place = isOfAll ? [parts(names[scene]), " "] : null;
        return el("div", {}, `${kind.name}: `, place, link, ", ", longText(text));
    });
    const more = entries.length - MOST_HINTS;
    return [shown, more > 0 ? el("div", {}, `and ${grouped(more)} more`) : null];
}

/**
 * A table under the bar of its filter. What `makeEntries` gives is also looked through; `refreshed` is called after
 * each change; what `between` holds stands above the table. Hints name the scene where the table is of all of them.
 */
class FilteredTable {
    constructor(
        {id, noun, table, taken, makeEntries = () => [], refreshed = () => {}, between = null, isOfAll = false}) {
        Object.assign(this, {noun, table, makeEntries, refreshed, isOfAll});
        this.input = el("input", {type: "search", id: `${id}-filter`, autocomplete: "off", spellcheck: "false"});
        this.input.addEventListener("input", () => this.filter());
        this.input.addEventListener("keydown", (event) => this.leave(event));
        this.count = el("span", {class: "count", role: "status"});
        this.hint = el("div", {class: "found-beside"});
        this.found = el("div", {}, between, table.element);
        const buttons = takeAlongButtons(taken, () => table.shown);
        this.element = el("div", {class: "filtered"}, this.bar(buttons), this.found);
        this.filter();
    }

    /** The bar stays in view, with the head of the table right below it, however high it is. */
    bar(buttons) {
        const bar =
            el("div", {class: "filter"}, el("label", {"for": this.input.id}, "Filter"), this.input,
               el("kbd", {"aria-hidden": "true"}, "/"), this.count, el("span", {class: "saves"}, buttons), this.hint);
        new ResizeObserver(() => this.element.style.setProperty("--filter-height", `${bar.offsetHeight}px`))
            .observe(bar);
        return bar;
    }

    filter(query = this.input.value) {
        this.input.value = query;
        const words = wordsOf(query);
        this.table.filter(words);
        this.refreshed();
        const found = this.foundBeside(words);
        this.found.hidden = this.table.shown.length === 0;
        this.count.textContent = this.countText(found);
        this.hint.replaceChildren();
        append(this.hint, hintItems(found, this.isOfAll));
    }

    foundBeside(words) {
        if (words.length === 0) return [];
        this.entries ??= this.makeEntries();
        return this.entries.filter(({searched}) => holdsAll(searched, words));
    }

    countText(found) {
        const left = grouped(this.table.shown.length);
        const beside =
            [...groupedBy(found, ({kind}) => kind)].map(([kind, entries]) => `, ${kind.counted(entries.length)}`);
        return `${left} of ${plural(this.table.rows.length, this.noun)}${beside.join("")}`;
    }

    /** The row's element, even if it had been filtered away. */
    reveal(row) {
        if (!row.isShown) this.filter("");
        return this.table.reveal(row);
    }

    leave(event) {
        if (event.key !== "Escape") return;
        if (this.input.value === "")
            this.input.blur();
        else
            this.filter("");
        event.preventDefault();
    }
}
