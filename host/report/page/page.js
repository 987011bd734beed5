// The page: header, one panel for each scene, and what keys, links, pointer and printer do.

const {scenes, program} = data;
const names = sceneNames(scenes);

const MOST_HINTS = 3;

/** Drivers without a job that the filter finds. */
function skippedHint(entries) {
    const shown = entries.slice(0, MOST_HINTS)
                      .map(
                          ({item, id}) =>
                              el("div", {}, "Without a job: ", el("a", {href: `#${id}`}, longText(item.node)), ", ",
                                 longText(item.text)));
    const more = entries.length - MOST_HINTS;
    return [shown, more > 0 ? el("div", {}, `and ${more} more`) : null];
}

/** One scene: its panel, filled when it is first shown. */
class SceneView {
    constructor(scene, index) {
        this.scene = scene;
        this.index = index;
        this.name = names[index];
        this.panel =
            el("section", {id: `s${index}`, class: "panel", tabindex: "-1", "aria-label": `Scene ${this.name}`});
    }

    fill() {
        if (this.isFilled) return;
        this.isFilled = true;
        const {scene, index} = this;
        this.skipped = skippedSection(scene, index);
        append(this.panel, [
            this.title(), this.failure(), figures(scene, index), warningsSection(scene, index), this.skipped.element,
            this.jobsSection(), factSections(scene, index)
        ]);
    }

    title() {
        const path = this.scene.scene;
        return el(
            "div", {class: "scene"}, el("h2", {}, longText(fileNameOf(path))),
            el("p", {class: "code quiet"}, longText(folderOf(path))));
    }

    failure() {
        if (this.scene.code === 1) return null;
        const reason = longText(this.scene.error ?? "no reason given");
        return el("p", {class: "failure"}, el("b", {}, "Failed: "), reason, ` (code ${this.scene.code})`);
    }

    jobsSection() {
        const id = `s${this.index}-jobs`;
        const hasNone = this.scene.jobs.length === 0;
        if (hasNone && this.scene.code !== 1) return null;
        if (hasNone) return section(id, "Jobs", el("p", {}, "This scene has no jobs."));
        this.jobs = new JobTable(this.scene, this.index);
        this.chart = new FrameChart(this.jobs.rows, this.scene.jobs);
        this.input =
            el("input", {type: "search", id: `s${this.index}-filter`, autocomplete: "off", spellcheck: "false"});
        this.input.addEventListener("input", () => this.filter());
        this.input.addEventListener("keydown", (event) => this.leaveFilter(event));
        this.count = el("span", {class: "count", role: "status"});
        this.hint = el("div", {class: "found-without"});
        this.found =
            el("div", {}, this.chart.element,
               el("div", {class: "wide", role: "region", "aria-label": "Job table", tabindex: "0"}, this.jobs.table));
        this.filter();
        return section(id, "Jobs", this.filterBar(), this.found);
    }

    /** The bar stays in view, with the head of the table right below it, however high it is. */
    filterBar() {
        const bar = el("div", {class: "filter"}, el("label", { for: this.input.id
                       }, "Filter"), this.input, el("kbd", {"aria-hidden": "true"}, "/"), this.count, this.hint);
        new ResizeObserver(() => this.panel.style.setProperty("--filter-height", `${bar.offsetHeight}px`)).observe(bar);
        return bar;
    }

    filter() {
        const words = wordsOf(this.input.value);
        const left = this.jobs.filter(words);
        this.chart.refresh();
        this.found.hidden = left === 0;
        const found = words.length === 0 ? [] : this.skipped.entries.filter((entry) => holdsAll(entry.text, words));
        this.count.textContent = `${left} of ${plural(this.jobs.rows.length, "job")}${
            found.length > 0 ? `, ${found.length} without a job` : ""}`;
        this.hint.replaceChildren();
        append(this.hint, skippedHint(found));
    }

    clearFilter() {
        this.input.value = "";
        this.filter();
    }

    leaveFilter(event) {
        if (event.key !== "Escape") return;
        if (this.input.value === "")
            this.input.blur();
        else
            this.clearFilter();
        event.preventDefault();
    }
}

const views = scenes.map((scene, index) => new SceneView(scene, index));

/** The panel of all scenes, only there for several: figures of each, and what differs between two. */
function overviewPanel() {
    const columns = [
        ["Scene", ({name, index}) => el("a", {href: `#s${index}`}, longText(name))],
        ["Folder", ({scene}) => code(folderOf(scene.scene))],
        ["Houdini", ({scene}) => scene.facts?.houdiniVersion || null],
        ["Frames", ({scene}) => frameRangeText(scene.facts?.frameRange)],
        ["Jobs", ({scene}) => scene.jobs.length],
        ["Skipped", ({scene}) => scene.skipped && skippedDrivers(scene).length],
        ["Warnings", ({scene}) => scene.warnings?.length],
        [
            "Result",
            ({scene}) => (scene.code === 1 ? "loaded" : el("span", {class: "fault"}, longText(scene.error ?? "failed")))
        ],
    ];
    return el(
        "section", {id: "overview", class: "panel", tabindex: "-1", "aria-label": "All scenes"}, el("h2", {}, "Scenes"),
        plainTable("Scenes", columns, views), comparison(views));
}

const panels = scenes.length > 1 ? [{name: "All scenes", panel: overviewPanel(), fill() {}}, ...views] : views;

/** Tabs that name the panels; only one panel is shown. */
class Tabs {
    constructor() {
        this.buttons = panels.map((view, index) => this.button(view, index));
        this.element = el("div", {class: "tabs", role: "tablist", "aria-label": "Scenes"}, this.buttons);
        this.element.addEventListener("keydown", (event) => this.move(event));
        if (panels.length > 1) {
            for (const [index, view] of panels.entries())
                fill(view.panel, {role: "tabpanel", "aria-labelledby": this.buttons[index].id}, []);
        }
    }

    button({panel, name, scene}, index) {
        const hasFailed = scene && scene.code !== 1;
        const mark = hasFailed ? el("span", {class: "mark", role: "img", "aria-label": "failed"}, "!") : null;
        const button =
            el("button", {role: "tab", type: "button", id: `tab-${panel.id}`, "aria-controls": panel.id}, name, mark);
        button.addEventListener("click", () => this.select(index));
        return button;
    }

    select(index) {
        this.selected = index;
        panels[index].fill();
        for (const [at, view] of panels.entries()) {
            view.panel.classList.toggle("away", at !== index);
            this.buttons[at].setAttribute("aria-selected", String(at === index));
            this.buttons[at].tabIndex = at === index ? 0 : -1;
        }
    }

    move(event) {
        const last = panels.length - 1;
        const targets = {ArrowRight: this.selected + 1, ArrowLeft: this.selected - 1, Home: 0, End: last};
        const target = targets[event.key];
        if (target === undefined) return;
        event.preventDefault();
        this.select((target + panels.length) % panels.length);
        this.buttons[this.selected].focus();
    }
}

const tabs = new Tabs();

// Links lead to places of the page, which may be in another panel, filtered away or folded up.

function makeShown(target) {
    const view = views.find(({panel}) => panel.contains(target));
    if (target.hidden && view?.input) view.clearFilter();
    target.closest("details")?.setAttribute("open", "");
}

function goTo(hash) {
    const id = hash.slice(1);
    const at = panels.findIndex(({panel}) => id === panel.id || id.startsWith(`${panel.id}-`));
    if (at < 0) return;
    tabs.select(at);
    const target = document.getElementById(id);
    if (!target) return;
    makeShown(target);
    for (const found of document.querySelectorAll(".found")) found.classList.remove("found");
    const isPart = target !== panels[at].panel;
    if (isPart) target.classList.add("found");
    target.scrollIntoView({block: target.matches("tr, li") ? "center" : "start"});
    target.focus({preventScroll: true});
}

function followLinks() {
    document.addEventListener("click", (event) => {
        const link = event.target.closest?.("a[href^='#s']");
        if (!link || link.getAttribute("href") !== location.hash) return;  // hashchange reports any other place
        event.preventDefault();
        goTo(location.hash);
    });
    addEventListener("hashchange", () => goTo(location.hash));
}

// Colours follow the system until the button is used.

const darkSystem = matchMedia("(prefers-color-scheme: dark)");

function themeButton() {
    const button = el("button", {type: "button", class: "theme"});
    const apply = (isDark) => {
        document.documentElement.dataset.theme = isDark ? "dark" : "light";
        button.textContent = isDark ? "Light colours" : "Dark colours";
    };
    const follow = (event) => apply(event.matches);
    darkSystem.addEventListener("change", follow);
    button.addEventListener("click", () => {
        darkSystem.removeEventListener("change", follow);
        apply(document.documentElement.dataset.theme !== "dark");
    });
    apply(darkSystem.matches);
    return button;
}

// Keys: "/" goes to the filter of the panel that is shown.

function handleKeys() {
    document.addEventListener("keydown", (event) => {
        const isTyping = event.target.matches?.("input, select");
        const {input} = panels[tabs.selected];
        if (event.key !== "/" || isTyping || event.ctrlKey || event.metaKey || event.altKey || !input) return;
        event.preventDefault();
        input.focus();
        input.select();
    });
}

// A bar says what it means beside it, under the pointer and on focus.

function showTips() {
    const tip = document.getElementById("tip");
    const show = (event) => {
        const bar = event.target.closest?.("a.bar");
        tip.hidden = !bar;
        if (!bar) return;
        tip.textContent = bar.dataset.tip;
        const box = bar.getBoundingClientRect();
        const left = Math.min(Math.max(8, box.left), innerWidth - tip.offsetWidth - 8);
        const below = box.bottom + 6;
        tip.style.left = `${Math.max(8, left)}px`;
        tip.style.top = `${below + tip.offsetHeight > innerHeight ? box.top - tip.offsetHeight - 6 : below}px`;
    };
    for (const event of ["pointerover", "focusin"]) document.addEventListener(event, show);
    document.addEventListener("focusout", () => {
        tip.hidden = true;
    });
}

/** On paper all panels are there and everything is unfolded. */
function unfoldForPrint() {
    let folded = [];
    addEventListener("beforeprint", () => {
        for (const view of panels) view.fill();
        folded = [...document.querySelectorAll("details:not([open])")];
        for (const details of folded) details.open = true;
    });
    addEventListener("afterprint", () => {
        for (const details of folded) details.open = false;
    });
}

function totals() {
    const sum = (count) => scenes.reduce((total, scene) => total + count(scene), 0);
    const failed = sum((scene) => (scene.code === 1 ? 0 : 1));
    const parts = [plural(scenes.length, "scene"), plural(sum((scene) => scene.jobs.length), "job")];
    if (scenes.some((scene) => scene.skipped))
        parts.push(`${plural(sum((scene) => skippedDrivers(scene).length), "driver")} skipped`);
    if (scenes.some((scene) => scene.warnings))
        parts.push(plural(sum((scene) => scene.warnings?.length ?? 0), "warning"));
    if (failed > 0) parts.push(`${failed} failed`);
    return parts.join(" \u00b7 ");
}

function start() {
    document.title =
        visible(scenes.length === 1 ? `Render jobs: ${names[0]}` : `Render jobs of ${scenes.length} scenes`);
    append(document.getElementById("top"), [
        el("h1", {}, "Render jobs"), el("p", {class: "totals"}, totals()), themeButton(),
        panels.length > 1 ? tabs.element : null
    ]);
    const content = document.getElementById("content");
    content.replaceChildren(...panels.map(({panel}) => panel));
    append(document.getElementById("bottom"), [`Generated by ${program}`]);
    tabs.select(0);
    followLinks();
    handleKeys();
    showTips();
    unfoldForPrint();
    goTo(location.hash);
}

start();
