// One scene, made when it is asked for.

class SceneView {
    constructor(scene, index) {
        Object.assign(this, {scene, index, id: `s${index}`, title: names[index]});
        this.element = el("section", {class: "view", "aria-labelledby": `${this.id}-title`});
        append(this.element, [
            this.head(), this.failure(), sceneFigures(scene, index),
            rendererFigures(scene.jobs, (renderer) => this.findJobs(renderer)), warningsSection(scene, index),
            this.jobsSection(), skippedSection(scene, index), factSections(scene, index)
        ]);
    }

    head() {
        const path = this.scene.scene;
        return el(
            "div", {class: "scene"}, scenes.length > 1 ? this.ways() : null,
            el("h2", {id: `${this.id}-title`, tabindex: "-1"}, longText(fileNameOf(path))),
            el("p", {class: "code quiet"}, longText(folderOf(path))));
    }

    /** To the scenes before and behind, and to the comparison with another one. */
    ways() {
        const way = (index, title) => {
            if (!scenes[index]) return null;
            return el("a", {href: `#s${index}`, title: names[index]}, title);
        };
        const comparing = el("a", {href: "#compare"}, "Compare with another scene");
        comparing.addEventListener("click", () => {
            compareView.choose(this.index);
        });
        return el(
            "nav", {class: "ways", "aria-label": "Other scenes"}, way(this.index - 1, "\u2190 Previous scene"),
            el("span", {class: "quiet"}, `${grouped(this.index + 1)} of ${grouped(scenes.length)}`),
            way(this.index + 1, "Next scene \u2192"), comparing);
    }

    failure() {
        const outcome = outcomeOf(this.scene);
        if (outcome === "loaded") return null;
        const isFailed = outcome === "failed";
        if (!isFailed && !this.scene.error) return el("p", {class: "notice-line"}, "This scene has no jobs.");
        const reason = longText(this.scene.error ?? "no reason given");
        return el(
            "p", {class: isFailed ? "failure" : "notice-line"}, isFailed ? el("b", {}, "Failed: ") : null, reason,
            ` (code ${this.scene.code})`);
    }

    jobsSection() {
        const {scene, index} = this;
        const id = `${this.id}-jobs`;
        if (scene.jobs.length === 0) return null;
        this.rows = jobRows(scene, index);
        for (const row of this.rows) row.id = `${this.id}-j${row.number}`;
        this.chart = new FrameChart(this.rows, scene.jobs);
        this.table = new FilteredTable({
            id: this.id,
            noun: "job",
            table: new RowTable({kind: "jobs", caption: "Jobs", columns: JOB_COLUMNS, rows: this.rows}),
            taken: TAKEN_JOBS,
            makeEntries: () => entriesBeside(scene, index),
            refreshed: () => this.chart.refresh(),
            between: this.chart.element
        });
        return section(id, `Jobs (${grouped(this.rows.length)})`, this.table.element);
    }

    findJobs(words) {
        this.table.filter(words);
        this.table.input.focus();
    }

    /** The place that an address names; jobs and entries of lists are made where they are not there yet. */
    find(id) {
        const [, kind, number] = /-([jwx])(\d+)$/.exec(id) ?? [];
        if (kind === "j") return this.rows?.[number - 1] ? this.table.reveal(this.rows[number - 1]) : null;
        if (kind && !document.getElementById(id)) unfoldAll(this.element);
        return document.getElementById(id);
    }
}
