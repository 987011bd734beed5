"""What can go wrong, as exceptions; all of them are a VxsceneError."""

from __future__ import annotations


class VxsceneError(Exception):
    """Base of all exceptions of this package."""


class ProgramNotFound(VxsceneError):
    """There is no program vxscene where one is looked for (see program_path)."""


class ProgramError(VxsceneError):
    """The program vxscene ended without an answer.

    status: its exit status; below 0: the signal that ended it. What it printed as an error is the exception's text.
    """

    def __init__(self, message: str, status: int) -> None:
        super().__init__(message)
        self.status = status


class SceneError(VxsceneError):
    """A scene could not be loaded.

    scene: its path. code: the result, as in Scene.code. The reason, in words, is in the exception's text.
    """

    def __init__(self, scene: str, code: int, reason: str) -> None:
        super().__init__(f"{scene}: {reason}")
        self.scene = scene
        self.code = code


class FormatError(VxsceneError):
    """The program's output is none that this package can read: it is of another version."""


class VxsceneWarning(UserWarning):
    """Something that did not fail, but that one has to be told: a path of a scan without a scene, a job left out."""
