"""What changed from one scene to another."""

from __future__ import annotations

import json
import os
from dataclasses import dataclass
from typing import Sequence

from .decoding import check_version
from .program import Asking, absolute, submitter_words
from .records import ChangedJob
from .scene import Job


@dataclass(frozen=True)
class Diff:
    """Jobs that came, went or changed.

    came: only in the new scene. went: only in the old one. changed: in both, with the fields that differ. unchanged: how
    many jobs show no difference. A Diff is true where there is any difference.
    """

    old: str
    new: str
    came: tuple[Job, ...]
    went: tuple[Job, ...]
    changed: tuple[ChangedJob, ...]
    unchanged: int

    def __bool__(self) -> bool:
        return bool(self.came or self.went or self.changed)

    def __repr__(self) -> str:
        counts = f"{len(self.came)} came, {len(self.went)} went, {len(self.changed)} changed"
        return f"<Diff {self.old} to {self.new}: {counts}, {self.unchanged} unchanged>"


def diff(
    old: str | os.PathLike[str],
    new: str | os.PathLike[str],
    resolve: bool = False,
    arguments: Sequence[str] = (),
    every_field: bool = False,
) -> Diff:
    """Compares the jobs of two scenes.

    resolve, arguments: as in load. every_field: also those that differ only by the folder and name of the scenes and by
    own numbers. Raises ProgramError where a scene cannot be loaded.
    """
    words = ["diff", "--format", "json", *(["--resolve"] if resolve else []), *(["--all"] if every_field else [])]
    with Asking([*words, absolute(old), absolute(new), *submitter_words(arguments)]) as asking:
        text = asking.text()
        asking.finish((0, 1))
    told = json.loads(text)
    check_version(told)
    return Diff(
        told["old"],
        told["new"],
        tuple(map(Job.from_json, told["came"])),
        tuple(map(Job.from_json, told["went"])),
        tuple(map(ChangedJob.from_json, told["changed"])),
        told["unchanged"],
    )
