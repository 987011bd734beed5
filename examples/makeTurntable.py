#!/usr/bin/env python3
"""Writes turntable.hip: a product on a turntable with an output driver for each renderer, two takes and a wedge.

makeTurntable.py          writes turntable.hip beside this file
makeTurntable.py --check  only compares; exit status 1 when the file differs

A scene file is a cpio archive in its old ASCII form: a header of octal fields, the entry's name and a NUL, then the
body, and the next entry right behind it. A node is a handful of entries that share its path; its parameters are in
the one that ends in .parm. Nothing here depends on the time or the machine, so the same bytes come out every time.
"""
import pathlib
import struct
import sys

TARGET = pathlib.Path(__file__).with_name("turntable.hip")
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

OBJECTS = [
    camera("cam1", (0, 1.6, 6.5), 50, 1920, 1080),
    camera("cam_detail", (0.4, 1.1, 2.2), 100, 2048, 2048),
    # Two cameras 65 mm apart in one rig.
    node(
        "obj/stereocam1",
        "stereocamrig",
        ("t", 0, 1.6, 6.5),
        ("r", -8, 0, 0),
        ("res", 1920, 1080),
        ("interaxial", 0.065),
        ("ZPS", 6.7),
    ),
    camera("stereocam1/left_camera", (-0.0325, 0, 0), 50, 1920, 1080, rotation=(0, 0, 0)),
    camera("stereocam1/right_camera", (0.0325, 0, 0), 50, 1920, 1080, rotation=(0, 0, 0)),
    node(
        "obj/kettle",
        "geo",
        ("t", 0, 0, 0),
        ("r", 0, ("ry", 0), 0),
        ("s", 1, 1, 1),
        ("shop_materialpath", "/mat/steel"),
        expressions={"ry": f'"($FF - {FIRST}) / {LAST - FIRST + 1} * 360"'},
    ),
    node("obj/kettle/body", "tube", ("rad", 0.6, 0.9), ("height", 1.4), ("rows", 24), ("cols", 96)),
    node("obj/backdrop", "geo", ("t", 0, 0, -2), ("shop_materialpath", "/mat/paper")),
    node("obj/key_light", "hlight", ("t", 3, 4, 2), ("light_color", 1, 0.96, 0.9), ("light_intensity", 4)),
]

DRIVERS = [
    # Writes scene descriptions, which the renderer reads afterwards.
    driver(
        "out/mantra_beauty",
        "ifd",
        ("soho_program", "IFD.py"),
        ("camera", "/obj/cam1"),
        ("override_camerares", '"off"'),
        ("res_override", 1280, 720),
        ("soho_pipecmd", "mantra"),
        ("soho_outputmode", '"on"'),
        ("soho_diskfile", "$HIP/ifd/$OS.$F4.ifd"),
        ("vobject", "*"),
        ("vm_picture", "$HIP/render/$OS.$F4.exr"),
        ("vm_image_mplay_gamma", 2.2),
    ),
    driver(
        "out/arnold_beauty",
        "arnold",
        ("camera", "/obj/cam1"),
        ("override_camerares", '"off"'),
        ("res_override", 1280, 720),
        ("ar_picture", "$HIP/render/$OS/$HIPNAME.$F4.exr"),
        ("ar_picture_format", "exr"),
        ("ar_aovs", 2),
        ("ar_aov_label1", "diffuse"),
        ("ar_aov_separate1", '"on"'),
        ("ar_aov_separate_file1", "$HIP/render/$OS/$HIPNAME.diffuse.$F4.exr"),
        ("ar_aov_label2", "specular"),
        ("ar_aov_separate2", '"on"'),
        ("ar_aov_separate_file2", "$HIP/render/$OS/$HIPNAME.specular.$F4.exr"),
        ("ar_ass_export_enable", '"off"'),
        ("ar_ass_file", "$HIP/ass/$OS.$F4.ass.gz"),
        frames=ON_CHANNELS,
    ),
    driver(
        "out/redshift_beauty",
        "Redshift_ROP",
        ("RS_renderCamera", "/obj/cam_detail"),
        ("RS_overrideCameraRes", '"off"'),
        ("RS_overrideRes", 1280, 720),
        ("RS_outputFileNamePrefix", "$HIP/render/$OS.$AOV.$F4.exr"),
        ("RS_outputFileFormat", '".exr"'),
        ("RS_archive_enable", '"off"'),
        ("RS_archive_file", '"$HIP/rs/$OS.$F4.rs"'),
        ("RS_aov", 2),
        ("RS_aovID_1", '"Z"'),
        ("RS_aovSuffix_1", "depth"),
        ("RS_aovCustomPrefix_1", '""'),
        ("RS_aovFileFormat_1", '".exr"'),
        ("RS_aovID_2", '"CRYPTOMATTE"'),
        ("RS_aovSuffix_2", "crypto"),
        ("RS_aovCustomPrefix_2", '""'),
        ("RS_aovFileFormat_2", '".exr"'),
        frames=ON_CHANNELS,
        take="closeup",
    ),
    driver(
        "out/vray_beauty",
        "vray_renderer",
        ("render_camera", "/obj/cam_detail"),
        ("render_export_mode", '"2"'),
        ("render_export_filepath", "$HIP/vrscene/$OS.$F4.vrscene"),
        ("SettingsOutput_img_file_path", '"$JOB/review/$SHOT/$OS.$F4.png"'),
    ),
    driver(
        "out/kettle_geometry",
        "geometry",
        ("soppath", "/obj/kettle/body"),
        ("sopoutput", "$HIP/geo/$OS.$F4.bgeo.sc"),
        ("mkpath", '"on"'),
    ),
    driver(
        "out/kettle_alembic",
        "alembic",
        ("use_sop_path", '"off"'),
        ("root", "/obj"),
        ("objects", "*"),
        ("filename", "$JOB/publish/$SHOT/kettle.abc"),
        ("mkpath", '"on"'),
    ),
    driver(
        "out/mantra_stereo",
        "ifd",
        ("camera", "/obj/stereocam1"),
        ("override_camerares", '"on"'),
        ("res_override", 1920, 1080),
        ("soho_outputmode", '"off"'),
        ("vm_picture", "$HIP/render/$OS.$ACTIVETAKE.$F4.exr"),
        take=CURRENT_TAKE,
    ),
    # Looks at every 25th frame under three intensities of the key light.
    driver(
        "out/light_test",
        "opengl",
        ("camera", "/obj/cam1"),
        ("tres", '"on"'),
        ("res", 1280, 720),
        ("picture", "$HIP/review/$OS$WEDGE.$F4.png"),
        step=25,
    ),
    node(
        "out/wedge1",
        "wedge",
        ("execute", 0),
        ("prefix", "_wedge"),
        ("wrange", '"all"'),
        ("wedgenum", 0),
        ("driver", "../light_test"),
        ("wedgemethod", '"channel"'),
        ("random", '"off"'),
        ("wedgeparams", 1),
        ("name1", "key"),
        ("chan1", "/obj/key_light/light_intensity"),
        ("range1", 2, 6),
        ("steps1", 3),
    ),
    # Renders into a window of the artist's: nothing for a farm.
    driver(
        "out/preview",
        "ifd",
        ("camera", "/obj/cam1"),
        ("soho_outputmode", '"off"'),
        ("vm_picture", "ip"),
    ),
]

STAGE = [
    # What the drivers below find at /Render/rendersettings.
    node(
        "stage/rendersettings1",
        "rendersettings",
        ("primpath", "/Render/rendersettings"),
        ("camera", "/cameras/cam1"),
        ("resolution", 1920, 1080),
        ("pixelAspectRatio", 1),
        ("xn__redshiftglobalRS_archive_enable_control", "set"),
        ("xn__redshiftglobalRS_archive_enable", '"off"'),
        ("xn__redshiftglobalRS_archive_fileName_control", "set"),
        ("xn__redshiftglobalRS_archive_fileName", "$HIP/rs/$OS.$F4.rs"),
    ),
    driver(
        "stage/karma1",
        "karma",
        ("primpath", "/Render/rendersettings"),
        ("picture", "$HIP/render/$HIPNAME.$OS.$F4.exr"),
        ("camera", "/cameras/cam1"),
        ("resolution", 1920, 1080),
        ("engine", "xpu"),
        ("samplesperpixel", 64),
        frames=ON_CHANNELS,
    ),
    driver(
        "stage/usdrender_rop1",
        "usdrender_rop",
        ("renderer", "BRAY_HdKarma"),
        ("loppath", "/stage/kettle_look"),
        ("rendersettings", "/Render/rendersettings"),
        ("override_camera", '""'),
        ("outputimage", "$HIP/render/usd/$HIPNAME.$F4.exr"),
        ("lopoutput", "$HIP/usd/$OS.$F4.usd"),
        ("savestyle", "flattenimplicitlayers"),
        ("fileperframe", '"on"'),
        frames=ON_CHANNELS,
    ),
]

# The first variable stands behind the entry's name, on the line of its header; most readers do not find it there.
VARIABLES = {
    "ACTIVETAKE": "Main",
    "DRIVER": "mantra_beauty",
    "DRIVERPATH": "/out/mantra_beauty",
    "E": "2.7182818284590452354",
    "EYE": "stereo",
    "HIP": "/projects/kettle/turntable",
    "HIPFILE": "/projects/kettle/turntable/turntable.hip",
    "HIPNAME": "turntable",
    "HtoA_KickVersion": "7.1.4",
    "JOB": "/projects/kettle",
    "PI": "3.1415926535897932384",
    "SHOT": "tt010",
    "_HIP_SAVEPLATFORM": "linux-x86_64-gcc9.3",
    "_HIP_SAVEVERSION": "19.5.640",
    "status": "0",
}


START = f"""fplayback -i on -r off -f {FIRST} -e on -h on -t on -a on -k on -s 1
tcur 0
fps 24
tset 0 {LAST / 24:.10g}
frange {FIRST} {LAST}
unitlength 1
unitmass 1
"""


def scene():
    return b"".join(
        [
            entry(".start", START),
            entry(".variables", "".join(f"set -g {name} = '{value}'\n" for name, value in VARIABLES.items())),
            entry(".aliases", "alias cd 'opcf'\nalias ls 'opls'\nalias pwd 'oppwf'\n"),
            entry(".takeconfig", "takename -g take\n"),
            entry(".OPlibraries", ""),
            network("obj", OBJECTS),
            network("out", DRIVERS),
            network("stage", STAGE),
            entry(".takes", takes()),
            entry(".cwd", "opcf /\ntakeset Main\n"),
            entry("TRAILER!!!", ""),
        ]
    )


def main(arguments):
    if arguments == ["--check"]:
        if TARGET.read_bytes() == scene():
            return 0
        print(f"{TARGET} is not what {__file__} makes: run it without --check", file=sys.stderr)
        return 1
    if arguments:
        print(__doc__, file=sys.stderr)
        return 2
    TARGET.write_bytes(scene())
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
