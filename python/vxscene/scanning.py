"""Many scenes, one after the other as they come."""

from __future__ import annotations

import os
import tempfile
import warnings
from typing import Iterable, Iterator, Sequence

from .errors import VxsceneWarning
from .program import Asking, absolute, submitter_words
from .scene import JSON_TELLS, Scene


def scan(
    paths: Iterable[str | os.PathLike[str]],
    parallel: int | None = None,
    timeout: float | None = None,
    resolve: bool = False,
    arguments: Sequence[str] = (),
    recursive: bool = True,
) -> Iterator[Scene]:
    """The scenes of paths, in their order, each as soon as it is loaded. A scene that fails comes like the others, with
    its code and error; Scene.raise_for_error makes an exception of it.

    paths: files, and folders, whose scenes are taken; read to the end before the first scene. parallel: scenes to load
    at a time, as many as there are cores by default. timeout: seconds for one scene. resolve, arguments: as in load.
    recursive: look into the folders below a folder too.

    Raises ProgramError where the program gives up, after the scenes that came before; warns with VxsceneWarning of a path
    that gave no scene. Whoever stops early ends the program with it.
    """
    words = ["jobs", "--format", "jsonl", "--no-progress"]
    words += ["--parallel", str(parallel)] if parallel is not None else []
    words += ["--timeout", str(timeout)] if timeout is not None else []
    words += ["--resolve"] if resolve else []
    words += ["--recursive"] if recursive else []
    with tempfile.TemporaryFile() as names:
        for path in paths:
            names.write(os.fsencode(absolute(path)) + b"\0")
        names.seek(0)
        with Asking([*words, "-", *submitter_words(arguments)], names) as asking:
            told_of: list[str] = []  # paths that the program has an error line for as well
            for told in asking.objects():
                scene = Scene(told, resolve, arguments)
                if not scene.ok:
                    told_of.append(scene.path)
                yield scene
            asking.finish(JSON_TELLS)
            for line in _other_lines(asking.error_text(), told_of):
                warnings.warn(line, VxsceneWarning, stacklevel=2)


def _other_lines(errors: str, told_of: Sequence[str]) -> Iterator[str]:
    """The error lines that speak of none of the paths; both are in the order of the scenes."""
    expected = iter(told_of)
    path = next(expected, None)
    for line in errors.splitlines():
        if path is not None and line.startswith(f"vxscene: {path}: "):
            path = next(expected, None)
        else:
            yield line
