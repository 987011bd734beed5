#!/usr/bin/env python3
"""Writes turntable.hip: a product on a turntable with an output driver for each renderer, two takes and a wedge.

makeTurntable.py          writes turntable.hip beside this file
makeTurntable.py --check  only compares; exit status 1 when the file differs
"""
import pathlib
import sys

from sceneWriter import CURRENT_TAKE, FIRST, LAST, ON_CHANNELS, camera, driver, main, node, scene

TARGET = pathlib.Path(__file__).with_name("turntable.hip")

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

if __name__ == "__main__":
    sys.exit(main(TARGET, scene(VARIABLES, OBJECTS, DRIVERS, STAGE), sys.argv[1:]))
