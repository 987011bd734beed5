// The page: header, the view that is shown, and what keys, links, pointer and printer do.

const scenesView = scenes.length === 1 ? null : new ScenesView();
const compareView = new CompareView();
const made = new Map([["scenes", scenesView], ["compare", compareView]]);
let shown = null;

function madeOnce(id, make) {
    if (!made.has(id)) made.set(id, make());
    return made.get(id);
}

/** The view that a place of the page is in; undefined for no place. */
function viewOf(place) {
    const [, index] = /^s(\d+)(-|$)/.exec(place) ?? [];
    if (scenes[index]) return madeOnce(`s${index}`, () => new SceneView(scenes[index], Number(index)));
    if (scenes.length === 1) return undefined;
    return place === "jobs" ? madeOnce("jobs", () => new JobsView()) : made.get(place);
}

/** In the list of views: the view itself, or the list that its scene is in. */
function markCurrent(view) {
    for (const link of document.querySelectorAll(".views a")) {
        const isHere = link.hash === `#${view.id}`;
        const isAbove = link.hash === "#scenes" && view instanceof SceneView;
        link.removeAttribute("aria-current");
        if (isHere || isAbove) link.setAttribute("aria-current", isHere ? "page" : "true");
    }
}

/** With the focus on its heading, where it was last looked at. */
function show(view) {
    if (view === shown) return;
    if (shown) shown.scrolledTo = scrollY;
    const isFirst = shown === null;
    shown = view;
    document.getElementById("content").replaceChildren(view.element);
    document.title = visible(`${view.title} \u2013 render jobs`);
    markCurrent(view);
    if (isFirst) return;
    scrollTo(0, view.scrolledTo ?? 0);
    view.element.querySelector("h2").focus({preventScroll: true});
}

function mark(target) {
    for (const found of document.querySelectorAll(".found")) found.classList.remove("found");
    target.classList.add("found");
    target.scrollIntoView({block: target.matches("tr, li") ? "center" : "start"});
    target.focus({preventScroll: true});
}

/** Places may be in another view, filtered away or folded up. */
function goTo(place) {
    const view = viewOf(place);
    if (!view) return;
    show(view);
    if (place === view.id) return;
    const target = view.find?.(place);
    if (!target) return;
    unfoldAround(target);
    mark(target);
}

function unfoldAround(target) {
    const details = target.closest("details") ?? target.querySelector(":scope > details");
    if (!details) return;
    details.unfold?.();
    details.open = true;
}

function startPlace() {
    if (scenes.length === 1) return "s0";
    return data.asksToCompare ? "compare" : "scenes";
}

function placeOf(hash) {
    const place = hash.slice(1);
    return viewOf(place) ? place : startPlace();
}

/** The table of all jobs with these words in its filter. */
function findJobs(words) {
    viewOf("jobs").table.filter(words);
    location.hash = "#jobs";
}

function followLinks() {
    document.addEventListener("click", (event) => {
        const link = event.target.closest?.("a[href^='#']");
        if (!link || link.hash !== location.hash || !viewOf(link.hash.slice(1))) return;
        event.preventDefault();  // hashchange reports any other place
        goTo(link.hash.slice(1));
    });
    addEventListener("hashchange", () => {
        if (location.hash !== "#content") goTo(placeOf(location.hash));
    });
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

// Keys: "/" goes to the filter of the view that is shown.

function handleKeys() {
    document.addEventListener("keydown", (event) => {
        const isTyping = event.target.matches?.("input, select");
        const input = shown?.table?.input;
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

/** Paper has all of the view that is shown, unfolded. */
function unfoldForPrint() {
    addEventListener("beforeprint", () => {
        shown.table?.table.showAll();
        shown.chart?.showAll();
        unfoldAll(shown.element);
    });
}

function viewLinks() {
    if (scenes.length === 1) return null;
    const views = [["scenes", "Scenes", scenes.length], ["jobs", "Jobs", allJobs.length], ["compare", "What differs"]];
    const link = ([id, title, count]) => el(
        "a", {href: `#${id}`}, title, count === undefined ? null : el("span", {class: "number"}, ` ${grouped(count)}`));
    return el("nav", {class: "views", "aria-label": "Views"}, views.map(link));
}

function start() {
    const when = String(data.made).replace("T", " ").replace("Z", " UTC");
    append(document.getElementById("top"), [
        el("h1", {}, "Render jobs"), viewLinks(), el("p", {class: "origin"}, `${when}, ${data.program}`), themeButton()
    ]);
    followLinks();
    handleKeys();
    showTips();
    unfoldForPrint();
    goTo(placeOf(location.hash));
}

start();
