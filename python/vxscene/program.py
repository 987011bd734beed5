"""The program vxscene, and how it is asked.

The package talks to the program through pipes and JSON lines, so that neither a scene nor the program can take the
interpreter along, and one package serves every version of Python.
"""

from __future__ import annotations

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
from typing import Any, IO, Iterator, Sequence

from .decoding import check_version
from .errors import FormatError, ProgramError, ProgramNotFound

#: Environment variable with the path of the program, before all other places.
PROGRAM_VARIABLE = "VXSCENE_PROGRAM"

#: The program that a wheel brings along.
BUNDLED_PROGRAM = pathlib.Path(__file__).with_name("program") / "bin" / "vxscene"


def program_path() -> str:
    """The program: what $VXSCENE_PROGRAM names, else the one that came with the package, else the first in $PATH.

    Raises ProgramNotFound.
    """
    named = os.environ.get(PROGRAM_VARIABLE)
    found = shutil.which(named or (str(BUNDLED_PROGRAM) if BUNDLED_PROGRAM.exists() else "vxscene"))
    if found is None:
        where = (
            f"${PROGRAM_VARIABLE} names {named}, which" if named else "neither the package nor $PATH has vxscene, which"
        )
        raise ProgramNotFound(f"{where} is no program that can be run")
    return found


def absolute(path: str | os.PathLike[str]) -> str:
    """The path in full: one that begins with "-" would be an option otherwise."""
    return os.path.abspath(os.fspath(path))


def submitter_words(arguments: Sequence[str]) -> list[str]:
    """Submitter arguments as they stand at the end of a command line."""
    return ["--", *arguments] if arguments else []


class Asking:
    """The program at work: its JSON lines as they come, then how it ended.

    Iterate to the end, or close it: what still runs then is ended.
    """

    def __init__(self, words: Sequence[str], stdin: IO[bytes] | None = None) -> None:
        self._errors = tempfile.TemporaryFile()  # a pipe that nobody reads would stop the program
        try:
            self._process = subprocess.Popen(
                [program_path(), *words],
                stdin=stdin if stdin is not None else subprocess.DEVNULL,
                stdout=subprocess.PIPE,
                stderr=self._errors,
            )
        except BaseException:
            self._errors.close()
            raise

    def objects(self) -> Iterator[dict[str, Any]]:
        """The objects that the program prints, one a line. Raises FormatError where a line is none."""
        assert self._process.stdout is not None
        for line in self._process.stdout:
            try:
                told: dict[str, Any] = json.loads(line)
            except ValueError as fault:
                raise FormatError(f"the program printed what is no JSON: {fault}") from fault
            check_version(told)
            yield told

    def text(self) -> str:
        """All that the program prints."""
        assert self._process.stdout is not None
        return self._process.stdout.read().decode("utf-8", "replace")

    def finish(self, good: Sequence[int]) -> int:
        """Waits for the program's end. Raises ProgramError where its exit status is not a good one."""
        status = self._process.wait()
        if status not in good:
            raise ProgramError(self.error_text() or f"vxscene ended with {status}", status)
        return status

    def error_text(self) -> str:
        """What the program printed as errors so far."""
        self._errors.seek(0)
        return self._errors.read().decode("utf-8", "replace").strip()

    def close(self) -> None:
        """Ends the program where it still runs."""
        if self._process.poll() is None:
            self._process.terminate()
            self._process.wait()
        if self._process.stdout is not None:
            self._process.stdout.close()
        self._errors.close()

    def __enter__(self) -> Asking:
        return self

    def __exit__(self, *fault: object) -> None:
        self.close()


def ask(words: Sequence[str], good: Sequence[int] = (0,)) -> list[dict[str, Any]]:
    """All JSON lines that the program prints. Raises ProgramError, see Asking.finish."""
    with Asking(words) as asking:
        told = list(asking.objects())
        asking.finish(good)
        return told


def ask_for_one(words: Sequence[str], good: Sequence[int] = (0,)) -> dict[str, Any]:
    """The only JSON line that the program prints. Raises ProgramError where it prints none."""
    told = ask(words, good)
    if len(told) != 1:
        raise ProgramError("vxscene printed no result", 0)
    return told[0]
