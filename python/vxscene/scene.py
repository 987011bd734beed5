"""Scenes and their jobs."""

from __future__ import annotations

import os
from dataclasses import dataclass
from functools import cached_property
from typing import TYPE_CHECKING, Any, Mapping, Sequence

from . import table
from .errors import SceneError
from .program import absolute, ask, ask_for_one, submitter_words
from .records import Facts, FileSet, JobRecord, NotRecognised, SceneWarning, Section, Value

if TYPE_CHECKING:
    import pandas

#: Results that are no failure: loaded, and loaded but nothing in it renders.
_LOADED = (1, 25)

# Exit statuses after which the JSON tells all: no failure, a scene failed, a file is no scene.
JSON_TELLS = (0, 1, 4)

# The same of files, which has 1 for missing ones.
FILES_TELL = (0, 1, 2, 4)


@dataclass(frozen=True, repr=False)
class Job(JobRecord):
    """A render job. JobRecord says what its fields mean; the properties here have the names that people use."""

    @property
    def driver(self) -> str:
        """Path of the output driver in the scene."""
        return self.layer

    @property
    def take(self) -> str:
        """The take that is rendered; empty for the job of all takes."""
        return self.channel

    @property
    def renderer(self) -> str:
        """Application and renderer: Houdini/createIFD."""
        return "/".join(filter(None, (self.app, self.app_renderer)))

    @property
    def size(self) -> tuple[int, int] | None:
        """Width and height in pixels; None where the camera decides."""
        return (self.image_width, self.image_height) if self.image_width or self.image_height else None

    @property
    def custom(self) -> dict[str, str]:
        """Custom data by name; of a name that is there twice the first value, as hosts read it."""
        return {entry.name: entry.value for entry in reversed(self.custom_data)}

    def __repr__(self) -> str:
        take = f" take {self.take}" if self.take else ""
        return f"<Job {self.driver}{take}: {self.renderer}, frames {self.frames}, {self.output or 'no output'}>"


@dataclass(frozen=True)
class Explanation:
    """What became of every node of a scene that may render.

    facts: what the scene as a whole holds. sections: all that was recognised, in the scene's order. not_recognised:
    nodes that look like output drivers and are none. warnings: what may go wrong on a farm.
    """

    facts: Facts
    sections: tuple[Section, ...]
    not_recognised: tuple[NotRecognised, ...]
    warnings: tuple[SceneWarning, ...]


class Scene:
    """A scene file as it was loaded.

    path: in full. code: 1 loaded, 25 loaded but nothing in it renders; all others are failures (docs/schema). error: why
    there are no jobs, in words; None with code 1. complete: False where the file is cut; None where that is not known.
    message: submitter options of the whole submission. jobs: in the order of the plug-in; their numbers, as in
    Job.waits_for, count from 1. resolved, arguments: how it was loaded, see load.
    """

    path: str
    code: int
    error: str | None
    complete: bool | None
    message: str
    jobs: tuple[Job, ...]
    resolved: bool
    arguments: tuple[str, ...]

    def __init__(self, told: Mapping[str, Any], resolve: bool = False, arguments: Sequence[str] = ()) -> None:
        """told: the program's JSON of the scene; resolve and arguments: those that it was loaded with."""
        self.path = told["scene"]
        self.code = told["code"]
        self.error = told.get("error")
        self.complete = told.get("complete")
        self.message = told["message"]
        self.jobs = tuple(map(Job.from_json, told["jobs"]))
        self.resolved = resolve
        self.arguments = tuple(arguments)

    @property
    def ok(self) -> bool:
        """The scene was loaded, whether anything in it renders or not, and none of it is missing."""
        return self.code in _LOADED and self.complete is not False

    def raise_for_error(self) -> None:
        """Raises SceneError where the scene could not be loaded."""
        if self.code not in _LOADED:
            raise SceneError(self.path, self.code, self.error or f"code {self.code}")

    @property
    def warnings(self) -> tuple[SceneWarning, ...]:
        """What may go wrong on a farm; see explanation."""
        return self.explanation.warnings

    @property
    def facts(self) -> Facts:
        """What the scene as a whole holds; see explanation."""
        return self.explanation.facts

    @cached_property
    def explanation(self) -> Explanation:
        """What became of every node that may render. The scene is read again for it, at the first use only.

        Raises SceneError where the scene cannot be explained, as it could not be opened or has changed into no scene.
        """
        told = ask_for_one(["explain", *self._words()], JSON_TELLS)
        if "facts" not in told:
            raise SceneError(self.path, told["code"], told.get("error", "no explanation"))
        return Explanation(
            Facts.from_json(told["facts"]),
            tuple(map(Section.from_json, told["sections"])),
            tuple(map(NotRecognised.from_json, told["notRecognised"])),
            tuple(map(SceneWarning.from_json, told["warnings"])),
        )

    def values(self, *nodes: str, driven: bool = False, frame: float | None = None) -> list[Value]:
        """Parameters of nodes as stored and as computed, by node and channel.

        nodes: paths or patterns, "/out/*"; all nodes without. driven: only what a channel, a variable or an expression
        tells. frame: compute for this one instead of the scene's current frame. Raises ProgramError where the scene or
        a node is not there.
        """
        words = ["--driven"] if driven else []
        if frame is not None:
            words += ["--frame", repr(frame)]
        return [Value.from_json(told) for told in ask(["values", "--format", "jsonl", *words, self.path, *nodes])]

    def files(self, missing: bool = False, names_only: bool = False, any_age: bool = False) -> list[FileSet]:
        """The files that the jobs will leave, as sets with a name in common, in the order of the jobs.

        missing: compare with the disk; FileSet.disk tells what of each set is there. names_only: look for names only, not
        for sizes and times. any_age: a file that is older than the scene counts as there. Raises SceneError where the
        scene cannot be loaded any more.
        """
        words = ["--missing"] if missing else []
        words += ["--names-only"] if names_only else []
        words += ["--any-age"] if any_age else []
        told = ask_for_one(["files", *words, *self._words()], FILES_TELL)
        if told["code"] not in _LOADED:
            raise SceneError(self.path, told["code"], told["error"])
        return [FileSet.from_json(each) for each in told["files"]]

    def to_dataframe(self) -> pandas.DataFrame:
        """A row for each job: the columns of the table, then the fields of the record. Needs pandas."""
        import pandas

        return pandas.DataFrame(table.rows(self))

    def __repr__(self) -> str:
        state = table.counted(len(self.jobs), "job") if self.code == 1 else self.error
        return f"<Scene {self.path}: {state}{', cut off' if self.complete is False else ''}>"

    def _repr_html_(self) -> str:
        return table.html_of(self)

    def _words(self) -> list[str]:
        resolve = ["--resolve"] if self.resolved else []
        return ["--format", "jsonl", "--no-progress", *resolve, self.path, *submitter_words(self.arguments)]


def load(path: str | os.PathLike[str], resolve: bool = False, arguments: Sequence[str] = ()) -> Scene:
    """Loads a scene.

    resolve: as Houdini reads it, with expressions computed and drivers known by their nodes' types. arguments: those of
    a submitter, "-houdiniBuildVersion", "50000". Raises SceneError where the scene cannot be loaded, ProgramError where
    the program gives no answer, ProgramNotFound. A scene that is cut or renders nothing is no failure: see Scene.ok.
    """
    words = ["jobs", "--format", "jsonl", *(["--resolve"] if resolve else []), absolute(path)]
    told = ask_for_one([*words, *submitter_words(arguments)], JSON_TELLS)
    scene = Scene(told, resolve, arguments)
    scene.raise_for_error()
    return scene
