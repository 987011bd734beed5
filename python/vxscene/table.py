"""The jobs of a scene as rows, and as a table for notebooks."""

from __future__ import annotations

import dataclasses
from html import escape
from typing import TYPE_CHECKING, Any, Callable

if TYPE_CHECKING:
    from .scene import Job, Scene


def counted(number: int, what: str) -> str:
    """1 job, 2 jobs"""
    return f"{number} {what}{'' if number == 1 else 's'}"


def _size(job: Job) -> str:
    return "x".join(map(str, job.size or ()))


def _waits(job: Job) -> str:
    return ", ".join("?" if number is None else str(number) for number in job.waits_for)


# The columns of the program's table, in its order.
_COLUMNS: dict[str, Callable[[Job], str]] = {
    "driver": lambda job: job.driver,
    "renderer": lambda job: job.renderer,
    "frames": lambda job: job.frames or "",
    "output": lambda job: job.output or "",
    "camera": lambda job: job.camera,
    "take": lambda job: job.take,
    "size": _size,
    "waits for": _waits,
}


def rows(scene: Scene) -> list[dict[str, Any]]:
    """A dictionary for each job: scene and number (from 1), the columns of the table, then all fields."""
    return [
        {
            "scene": scene.path,
            "number": number,
            **{name: cell(job) for name, cell in _COLUMNS.items()},
            **{field.name: getattr(job, field.name) for field in dataclasses.fields(job)},
        }
        for number, job in enumerate(scene.jobs, 1)
    ]


def html_of(scene: Scene) -> str:
    """The table of jobs as HTML, all texts escaped; columns that no job fills are left out."""
    caption = f"<p><b>{escape(scene.path)}</b>: {counted(len(scene.jobs), 'job')}</p>"
    if scene.error:
        caption += f"<p>{escape(scene.error)}</p>"
    if scene.complete is False:
        caption += "<p>The scene is cut off; jobs may be missing.</p>"
    cells = {name: list(map(cell, scene.jobs)) for name, cell in _COLUMNS.items()}
    shown = {name: column for name, column in cells.items() if any(column)}
    if not shown:
        return caption
    head = "".join(f"<th>{name}</th>" for name in ("", *shown))
    body = "".join(
        f"<tr><td>{number}</td>" + "".join(f"<td>{escape(cell)}</td>" for cell in row) + "</tr>"
        for number, row in enumerate(zip(*shown.values()), 1)
    )
    return f"{caption}<table><thead><tr>{head}</tr></thead><tbody>{body}</tbody></table>"
