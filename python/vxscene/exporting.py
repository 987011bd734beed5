"""Jobs as tasks of a farm's engine."""

from __future__ import annotations

import os
import warnings
from typing import Sequence

from .errors import VxsceneWarning
from .program import Asking, absolute, submitter_words
from .scene import Scene


def export(
    scene: Scene | str | os.PathLike[str],
    to: str,
    *,
    frames: str | None = None,
    jobs: str | None = None,
    chunk: int | None = None,
    commands: str | os.PathLike[str] | None = None,
    missing: bool = False,
    skip_invalid: bool = False,
    resolve: bool | None = None,
    arguments: Sequence[str] | None = None,
) -> str:
    """The submission of a scene's jobs to an engine, as text: "slurm", "openjd", "opencue", "shell".

    frames, jobs: only these, as "1001-1010,1020-1100x5"; jobs by their numbers, from 1. chunk: frames a task, where its
    command takes several. commands: a table of commands that counts before all others. missing: only frames of which
    files are missing on the disk. skip_invalid: leave out jobs that the engine cannot run; a VxsceneWarning tells which.
    resolve, arguments: as in load; of a Scene its own by default.

    Raises ProgramError where the scene cannot be loaded, or holds a job that the engine cannot run.
    """
    loaded = scene if isinstance(scene, Scene) else None
    path = scene.path if isinstance(scene, Scene) else absolute(scene)
    words = ["export", "--to", to, "--no-progress"]
    given = {"--frames": frames, "--jobs": jobs, "--chunk": chunk, "--commands": commands}
    for option, value in given.items():
        words += [option, str(value)] if value is not None else []
    words += ["--missing"] if missing else []
    words += ["--skip-invalid"] if skip_invalid else []
    words += ["--resolve"] if (resolve if resolve is not None else loaded is not None and loaded.resolved) else []
    submitter = arguments if arguments is not None else loaded.arguments if loaded else ()
    with Asking([*words, path, *submitter_words(submitter)]) as asking:
        text = asking.text()
        asking.finish((0,))
        for line in asking.error_text().splitlines():
            warnings.warn(line, VxsceneWarning, stacklevel=2)
    return text
