#!/usr/bin/env python3
"""Writes turntable_unfinished.hip: an early state of the turntable, with what goes wrong in scenes.

makeUnfinished.py          writes turntable_unfinished.hip beside this file
makeUnfinished.py --check  only compares; exit status 1 when the file differs
"""
import pathlib
import sys

from makeTurntable import OBJECTS, VARIABLES
from sceneWriter import CURRENT_TAKE, ON_CHANNELS, driver, main, node, scene

TARGET = pathlib.Path(__file__).with_name("turntable_unfinished.hip")

MORE_OBJECTS = [
    # Reads a cache; its path looks like that of a node that writes one.
    node("obj/kettle/geo_steam", "file", ("filemode", "read"), ("file", "$HIP/geo/steam.$F4.bgeo.sc")),
    # Writes for a game engine, under a path that no reader knows.
    driver("obj/kettle/rop_fbx1", "rop_fbx", ("sopoutput", "$HIP/export/kettle.fbx")),
]

DRIVERS = [
    # Its output follows a variable of another studio, whose name begins like the frame number's.
    driver(
        "out/mantra_beauty",
        "ifd",
        ("camera", "/obj/cam1"),
        ("res_override", 1280, 720),
        ("soho_outputmode", '"on"'),
        ("soho_diskfile", "$HIP/ifd/$OS.$F4.ifd"),
        ("vm_picture", "$FARM/render/$OS.$F4.exr"),
    ),
    # Both write the same files.
    driver("out/beauty", "ifd", ("camera", "/obj/cam1"), ("vm_picture", "$HIP/render/beauty.$F4.exr")),
    driver("out/beauty_test", "ifd", ("camera", "/obj/cam1"), ("vm_picture", "$HIP/render/beauty.$F4.exr")),
    # Export is on, its file was never named.
    driver(
        "out/arnold_beauty",
        "arnold",
        ("camera", "/obj/cam1"),
        ("ar_picture", "$HIP/render/$OS.$F4.exr"),
        ("ar_ass_export_enable", '"on"'),
        ("ar_ass_file", '""'),
    ),
    # Only the first frame is on a channel: the step is lost.
    driver("out/steam", "geometry", ("sopoutput", "$SHOW/geo/$OS.$F4.bgeo.sc"), frames=(("f1", 1001), 1100)),
    # Its frames are stored as they were before the scene got its own.
    driver(
        "out/kettle_geometry",
        "geometry",
        ("sopoutput", "geo/$OS.$F4.bgeo.sc"),
        frames=(("f1", 1), ("f2", 240)),
    ),
    driver("out/kettle_alembic", "alembic", ("filename", "P:/publish/kettle.abc")),
    driver("out/cache", "geometry", ("sopoutput", '`chs(\\"../kettle/file\\")`')),
    driver(
        "out/light_test",
        "opengl",
        ("camera", "/obj/cam1"),
        ("picture", "$HIP/review/$OS$WEDGE.$F4.png"),
        take=CURRENT_TAKE,
    ),
    # The driver that it repeats is wired to it.
    node(
        "out/wedge1",
        "wedge",
        ("driver", '""'),
        ("wedgemethod", '"channel"'),
        ("wedgeparams", 1),
        ("name1", "key"),
        ("range1", 2, 6),
        ("steps1", ("steps1", 3)),
    ),
    driver("out/preview", "ifd", ("camera", "/obj/cam1"), ("vm_picture", "ip")),
]

STAGE = [
    # The image comes from the stage's render settings; the export is Houdini's own temporary one.
    driver(
        "stage/usdrender_rop1",
        "usdrender_rop",
        ("renderer", "BRAY_HdKarma"),
        ("loppath", "/stage/kettle_look"),
        ("outputimage", '""'),
        ("lopoutput", "__render__.usd"),
        frames=ON_CHANNELS,
    ),
]

if __name__ == "__main__":
    sys.exit(main(TARGET, scene(VARIABLES, OBJECTS + MORE_OBJECTS, DRIVERS, STAGE), sys.argv[1:]))
