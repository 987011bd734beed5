#!/usr/bin/python3 -B
"""Stands in for the programs that a farm's tasks run, under their names: writes the files that a real one would.

hython reads what the drivers of a scene write from SCENE.json, {driver: {"writes": [names], "renders": [names],
"variants": [a name for each variant of a wedge]}} with "%04d" for the frame and "<take>"; what it exports says which
images a renderer makes of it. Each run adds a line to the file STAND_IN_LOG. STAND_IN_FAILS, "NAME FRAME", is a program
or driver and a frame that it fails at; STAND_IN_SECONDS is what a frame takes.
"""
import json
import os
import pathlib
import sys
import time

PROGRAM = pathlib.Path(sys.argv[0]).name


class Failure(Exception):
    pass


def render(name, frame, reads, writes, text=""):
    """One frame, or all of a file that holds them all."""
    time.sleep(float(os.environ.get("STAND_IN_SECONDS", "0")))
    if os.environ.get("STAND_IN_FAILS") == f"{name} {frame}":
        raise Failure(f"{PROGRAM}: frame {frame} failed")
    for path in map(pathlib.Path, writes):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text or f"{name} {frame}\n")
    LINE["reads"] += reads
    LINE["writes"] += writes


def hython(arguments):
    """The driver of a scene, given through the environment."""
    scene, driver = os.environ["VX_SCENE"], os.environ["VX_DRIVER"]
    first, last, step = map(int, os.environ["VX_FRAMES"].split())
    if len(arguments) != 2 or arguments[0] != "-c":
        raise Failure(f"hython: no program in {arguments}")
    outputs = json.loads(pathlib.Path(scene + ".json").read_text())[driver]
    if "VX_VARIANT" in os.environ:
        outputs["writes"] = [outputs["variants"][int(os.environ["VX_VARIANT"])]]

    def names(kind, frame):
        filled = [name % frame if "%" in name else name for name in outputs.get(kind, [])]
        return [str(pathlib.Path(scene).parent / name.replace("<take>", os.environ["VX_TAKE"])) for name in filled]

    frames = range(first, last + 1, step) if any("%" in name for name in outputs["writes"]) else [first]
    for frame in frames:
        exported = json.dumps({"frame": frame, "images": names("renders", frame)})
        render(driver, frame, [], names("writes", frame), exported)


def renderer(arguments):
    """A file that was exported, named last or behind "=": it has to be there, and holds one frame."""
    words = [word.split("=")[-1] for word in arguments]
    scenes = [word for word in words if pathlib.Path(word).suffix in EXPORTS[PROGRAM]]
    if len(scenes) != 1:
        raise Failure(f"{PROGRAM}: no scene in {arguments}")
    exported = json.loads(pathlib.Path(scenes[0]).read_text())
    if PROGRAM in GIVEN_A_FRAME and str(exported["frame"]) not in words:
        raise Failure(f"{PROGRAM}: the scene is of frame {exported['frame']}, asked for: {arguments}")
    render(PROGRAM, exported["frame"], scenes, exported["images"])


EXPORTS = {
    "mantra": [".ifd"],
    "kick": [".ass"],
    "redshiftCmdLine": [".rs"],
    "prman": [".rib"],
    "vray": [".vrscene"],
    "husk": [".usd"],
}
GIVEN_A_FRAME = ["vray", "husk"]

LINE = {"program": PROGRAM, "begin": time.time(), "reads": [], "writes": [], "failed": None}
try:
    (renderer if PROGRAM in EXPORTS else hython)(sys.argv[1:])
except (Failure, OSError, LookupError, ValueError) as problem:
    LINE["failed"] = str(problem)
LINE["end"] = time.time()
with open(os.environ["STAND_IN_LOG"], "a") as log:
    log.write(json.dumps(LINE) + "\n")
sys.exit(LINE["failed"])
