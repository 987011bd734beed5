"""Scene files for the tests of the report, and what vxscene makes of them."""
import json
import pathlib
import re
import subprocess
import sys

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
sys.path.insert(0, str(EXAMPLES))
from sceneWriter import START, driver, entry, network, node

PROGRAM = sys.argv[1]

# What a scene's author could try: markup, a script's address, characters that reorder, end or break a line.
MARKUP = "</script><script>window.attacked = 1</script><img src=x onerror='window.attacked = 1'>\"<!--"
ODD_CHARACTERS = "\u202eexe.\u2028\u2066\u200b\x1b[31m\r\x07\x9b\ufeff"
HOSTILE = f"javascript:window.attacked=1//{MARKUP}{ODD_CHARACTERS}&lt;{{{{script}}}}"


def scene(drivers, variables=None):
    lines = "".join(f"set -g {name} = '{value}'\n" for name, value in (variables or {}).items())
    variables = entry(".variables", "set -g ACTIVETAKE = 'Main'\n" + lines)
    return b"".join([entry(".start", START), variables, network("out", drivers), entry("TRAILER!!!", "")])


def geometry(name, frames=(1, 10), step=1, folder="geo"):
    output = ("sopoutput", f"$HIP/{folder}/{name}.$F4.bgeo.sc")
    return driver(f"out/{name}", "geometry", output, frames=frames, step=step)


def mantra(name, camera="/obj/cam1"):
    """Exports scene descriptions, which the renderer reads afterwards."""
    export = [("soho_outputmode", '"on"'), ("soho_diskfile", "$HIP/ifd/$OS$WEDGE.$F4.ifd")]
    return driver(f"out/{name}", "ifd", ("camera", camera), *export, ("vm_picture", "$HIP/render/$OS$WEDGE.$F4.exr"))


def arnold(name):
    export = [("ar_ass_export_enable", '"on"'), ("ar_ass_file", "$HIP/ass/$OS$WEDGE.$F4.ass")]
    return driver(f"out/{name}", "arnold", ("camera", "/obj/cam1"), ("ar_picture", "$HIP/render/$OS$WEDGE.$F4.exr"), *export)


def wedge(name, count):
    """Repeats the jobs of a driver."""
    channel = [("name1", "key"), ("chan1", "/obj/key/intensity"), ("range1", 1, count), ("steps1", count)]
    method = [("wedgemethod", '"channel"'), ("wedgeparams", 1)]
    return node(f"out/wedge_{name}", "wedge", ("prefix", "_w"), ("driver", f"../{name}"), *method, *channel)


def shot_scene():
    """Jobs 1 and 2: an export and the render that waits for it. Behind them geometry of various frames."""
    others = [geometry("cache", (9, 240)), geometry("still", (77, 77)), geometry("backwards", (80, 30), 5)]
    return scene([mantra("beauty"), *others, geometry("every10", (101, 300), 10)])


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
    path.parent.mkdir(exist_ok=True)
    path.write_bytes(content)
    return path


def run(*arguments, output=subprocess.PIPE, **options):
    return subprocess.run([PROGRAM, *map(str, arguments)], stdout=output, stderr=subprocess.PIPE, timeout=60, **options)


def run_report(*arguments, **options):
    return run("report", *arguments, **options)


DATA_BLOCK = re.compile(rb'(?<=id="data">).*?(?=</script>)', re.DOTALL)


def data_of(page):
    return json.loads(DATA_BLOCK.search(page).group())


def with_data(page, data):
    block = json.dumps(data).replace("<", "\\u003c").encode()
    return DATA_BLOCK.sub(lambda _: block, page, count=1)


def with_texts(value, change):
    """The data with another text for each text in it."""
    if isinstance(value, dict):
        return {name: with_texts(part, change) for name, part in value.items()}
    if isinstance(value, list):
        return [with_texts(part, change) for part in value]
    return change(value) if isinstance(value, str) else value
