"""Scene files and explained scenes for the tests of the report."""
import json
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "examples"))
from sceneWriter import START, driver, entry, network

PROGRAM, PAGE_OF = sys.argv[1:3]

# What a scene's author could try: markup, a script's address, characters that reorder, end or break a line.
MARKUP = "</script><script>window.attacked = 1</script><img src=x onerror='window.attacked = 1'>\"<!--"
ODD_CHARACTERS = "\u202eexe.\u2028\u2066\u200b\x1b[31m\r\x07\x9b\ufeff"
HOSTILE = f"javascript:window.attacked=1//{MARKUP}{ODD_CHARACTERS}&lt;{{{{script}}}}"


def scene(drivers, variables):
    lines = "".join(f"set -g {name} = '{value}'\n" for name, value in variables.items())
    variables = entry(".variables", "set -g ACTIVETAKE = 'Main'\n" + lines)
    return b"".join([entry(".start", START), variables, network("out", drivers), entry("TRAILER!!!", "")])


def geometry(name, frames, step=1):
    output = ("sopoutput", f"$HIP/geo/{name}.$F4.bgeo.sc")
    return driver(f"out/{name}", "geometry", output, frames=frames, step=step)


def shot_scene():
    """Jobs 1 and 2: an export and the render that waits for it. Behind them geometry of various frames."""
    beauty = driver(
        "out/beauty",
        "ifd",
        ("camera", "/obj/cam1"),
        ("soho_outputmode", '"on"'),
        ("soho_diskfile", "$HIP/ifd/$OS.$F4.ifd"),
        ("vm_picture", "$HIP/render/$OS.$F4.exr"),
        frames=(1001, 1100),
    )
    others = [geometry("cache", (9, 240)), geometry("still", (77, 77)), geometry("backwards", (80, 30), 5)]
    return scene([beauty, *others, geometry("every10", (101, 300), 10)], {})


def hostile_scene():
    by_name = driver(
        f"out/{HOSTILE}",
        "ifd",
        ("camera", f"/obj/{HOSTILE}"),
        ("soho_outputmode", '"off"'),
        ("vm_picture", f"javascript:window.attacked=1//{MARKUP}{'x' * 300}.$F4.exr"),
        take=f"t{MARKUP}",
    )
    by_variable = driver("out/b", "geometry", ("sopoutput", "$ODD/$F4.bgeo"))
    return scene([by_name, by_variable], {"ODD": HOSTILE, "_HIP_SAVEVERSION": f"19.5{MARKUP}"})


def written(folder, name, content):
    path = pathlib.Path(folder) / name
    path.write_bytes(content)
    return path


def run_report(*arguments, output=subprocess.PIPE, **options):
    command = [PROGRAM, "report", *map(str, arguments)]
    return subprocess.run(command, stdout=output, stderr=subprocess.PIPE, timeout=60, **options)


def page_of(scenes):
    """The page of explained scenes, with members that a scene file does not lead to."""
    return subprocess.run([PAGE_OF], input=json.dumps(scenes).encode(), capture_output=True, timeout=60, check=True).stdout


def job(driver, renderer="Houdini/karma", frames=(1, 10, 1), folder="<SceneFolder>render/", **fields):
    app, app_renderer = renderer.split("/")
    start, end, step = frames
    return {
        **{"layer": driver, "app": app, "appRenderer": app_renderer, "seqStart": start, "seqEnd": end, "seqStep": step},
        **{"imageDir": folder, "imageFileName": "a.", "imagePadding": 4, "imageExtension": ".exr", **fields},
    }


def explained(path, jobs, text=lambda text: text):
    """An explained scene with every member; `text` may make something else of each of its texts."""
    node = text("/out/node")
    place = {"line": 12, "byte": 345}
    return {
        "scene": path,
        "code": 1,
        "jobs": jobs,
        "facts": {
            "houdiniVersion": text("19.5.640"),
            "frameRange": {"start": 1, "end": 10, "step": 1, "stored": True},
            "takes": [text("Main"), text("closeup")],
            "variables": [{"name": text("JOB"), "value": text("/projects/kettle"), "from": "scene"}],
            "cameras": [
                {"node": node, "width": 1280, "height": 720, "stereo": True, "drivers": [node]},
                {"node": "/obj/unread", "width": 0, "height": 0, "stereo": False, "drivers": []},
            ],
            "lops": [{"node": node, "image": text("a.exr"), "renderer": text("karma"), "drivers": [node]}],
            "usdRenderSettings": [{"node": node, "camera": node, "image": "", "archive": True, "drivers": [node]}],
            "wedges": [{"node": node, "driver": node, "variants": 3, "channels": [{"name": text("key"), "start": 2, "end": 6, "steps": 3}]}],
        },
        "sections": [
            {"reader": "driver", "node": "/out/made", **place, "outcome": "jobs", "jobs": [1], "code": "", "text": "", "details": []},
            {
                **{"reader": "driver", "node": text("/out/preview"), **place, "outcome": "none", "jobs": []},
                **{"code": "viewerOnly", "text": text("renders to the viewer only"), "details": [text("vm_picture: ip")]},
            },
        ],
        "notRecognised": [{"node": text("/tasks/mantra2"), **place, "code": "noRoot", "text": text("no output network")}],
        "warnings": [{"code": "sameFiles", "node": node, "jobs": [2, 1], "text": text("writes the same files")}],
    }
