"""Writes scene files for the examples.

A scene file is a cpio archive in its old ASCII form: a header of octal fields, the entry's name and a NUL, then the
body, and the next entry right behind it. A node is a handful of entries that share its path; its parameters are in
the one that ends in .parm. Nothing here depends on the time or the machine, so the same bytes come out every time.
"""
import struct
import sys

FIRST, LAST = 1001, 1100


# The archive.


def entry(name, body):
    """Magic; device, inode, mode, owner, group, links, special device; time; length of name with NUL; of body."""
    header = "070707" "000001" "000000" "000666" "000000" "000000" "000001" "000000" "00000000000"
    if isinstance(body, str):
        body = body.encode()
    return b"%s%06o%011o%s\0%s" % (header.encode(), len(name) + 1, len(body), name.encode(), body)


def texts_of_user(**texts):
    """Named texts of a node in binary: count, then length, name, kind, length, text; numbers big-endian."""
    body = struct.pack(">I", len(texts))
    for name, text in texts.items():
        body += struct.pack(f">H{len(name)}sIH{len(text)}s", len(name), name.encode(), 3, len(text), text.encode())
    return body


# Nodes. A parameter is a name and its components; a component with a channel is a pair (channel name, value).


def component(value):
    return f"[ {value[0]}\t{value[1]} ] " if isinstance(value, tuple) else str(value)


def parameter_line(name, *components):
    return "\t".join([name, "[ 0", "locks=0 ]", "(", *map(component, components), ")"]) + "\n"


def parameters(*lines):
    return "{\nversion 0.8\n" + "".join(parameter_line(*line) for line in lines) + "}\n"


def channels(expressions):
    body = "{\n"
    for name, expression in expressions.items():
        body += f"    channel {name} {{\n      lefttype = extend\n      righttype = extend\n      flags = 0\n"
        body += f"      segment {{ length = 0 expr = {expression} }}\n    }}\n"
    return body + "  }\n"


def definition(position):
    return (
        f'comment ""\nposition {position} 0\nconnectornextid 0\n'
        "flags =  lock off model off template off footprint off xray off bypass off display on render on exposed on\n"
        "outputsNamed3\n{\n}\ninputsNamed3\n{\n}\ninputs\n{\n}\n"
        'stat\n{\n  author artist@studio\n  access 0777\n}\ndelscript ""\nexprlanguage hscript\nend\n'
    )


def node(path, kind, *lines, expressions=None):
    entries = entry(f"{path}.init", f"type = {kind}\nmatchesdef = 0\n") + entry(f"{path}.def", definition(len(lines)))
    if expressions:
        entries += entry(f"{path}.chn", channels(expressions))
    entries += entry(f"{path}.parm", parameters(*lines))
    return entries + entry(f"{path}.userdata", texts_of_user(___Version___="19.5.640"))


def network(path, nodes):
    return (
        entry(f"{path}.def", definition(0))
        + entry(f"{path}.parm", parameters())
        + entry(f"{path}.userdata", texts_of_user(___Version___="19.5.640"))
        + b"".join(nodes)
        + entry(f"{path}.net", "1\n")
    )


def camera(name, translation, focal, width, height, rotation=(-8, 0, 0)):
    return node(
        f"obj/{name}",
        "cam",
        ("xOrd", '"srt"'),
        ("rOrd", '"xyz"'),
        ("t", *translation),
        ("r", *rotation),
        ("res", width, height),
        ("aspect", 1),
        ("projection", '"perspective"'),
        ("focal", focal),
        ("aperture", 41.4214),
        ("near", 0.01),
        ("far", 1000),
        ("shutter", 0.5),
        ("focus", 5),
        ("fstop", 5.6),
    )


def record(text):
    return struct.pack(">I", len(text)) + text


def takes():
    """Main and its child, each with its own value for the one parameter that a take changes."""

    def with_material(path):
        return record(b"d 0 1\n" + record(parameters(("shop_materialpath", path)).encode()))

    end = record(b"e\n")
    parameter = record(b"s 0 /obj/kettle\n") + record(b"s 1 shop_materialpath\n")
    main = b"take name Main kids 1\n" + parameter + with_material("/mat/steel") + end
    return b"HoudiniTakeFile 1.0\n" + main + b"take name closeup kids 0\n" + with_material("/mat/steel_fine") + end


def driver(path, kind, *lines, frames=(FIRST, LAST), step=1, take="Main"):
    """An output driver with its own frame range; the numbers are plain or each on a channel. It renders its own take,
    or with CURRENT_TAKE the one that the artist looks at: for a farm that means every take of the scene."""
    fixed = isinstance(frames[0], int)
    return node(
        path,
        kind,
        ("execute", 0),
        ("renderdialog", 0),
        ("trange", '"normal"'),
        ("f", *frames, step),
        ("take", take),
        *lines,
        ("tprerender", '"on"'),
        ("prerender", '""'),
        ("lprerender", '"hscript"'),
        expressions=None if fixed else {"f1": "$FSTART", "f2": "$FEND"},
    )


ON_CHANNELS = (("f1", FIRST), ("f2", LAST))
CURRENT_TAKE = "_current_"


# The first variable follows the name of the entry, on the line of its header; most readers do not find it there.
START = f"""fplayback -i on -r off -f {FIRST} -e on -h on -t on -a on -k on -s 1
tcur 0
fps 24
tset {(FIRST - 1) / 24:.10g} {LAST / 24:.10g}
frange {FIRST} {LAST}
unitlength 1
unitmass 1
"""


def scene(variables, objects, drivers, stage):
    return b"".join(
        [
            entry(".start", START),
            entry(".variables", "".join(f"set -g {name} = '{value}'\n" for name, value in variables.items())),
            entry(".aliases", "alias cd 'opcf'\nalias ls 'opls'\nalias pwd 'oppwf'\n"),
            entry(".takeconfig", "takename -g take\n"),
            entry(".OPlibraries", ""),
            network("obj", objects),
            network("out", drivers),
            network("stage", stage),
            entry(".takes", takes()),
            entry(".cwd", "opcf /\ntakeset Main\n"),
            entry("TRAILER!!!", ""),
        ]
    )


def main(target, content, arguments):
    """Writes the scene, or with --check only compares. @return the exit status"""
    if arguments == ["--check"]:
        if target.exists() and target.read_bytes() == content:
            return 0
        print(f"{target} is not what {sys.argv[0]} makes: run it without --check", file=sys.stderr)
        return 1
    if arguments:
        print(f"Usage: {sys.argv[0]} [--check]", file=sys.stderr)
        return 2
    target.write_bytes(content)
    return 0
