#include "input/sceneLine.h"

#include <gtest/gtest.h>

#include "input/sectionKinds.h"

namespace vxP {

namespace {

struct _case {
    const char* what;
    const char* line;
    const char* kind;  ///< of its section, or of the line
    bool frameRange = false;
    bool variable = false;
};

constexpr _case cases[] = {
    {"empty", "", "other"},
    {"comment", "# frange 1 2", "other"},
    {"frame_range", "frange 1 240", "other", true},
    {"frame_range_in_capitals", "FRANGE\t1 240", "other", true},
    // A file node's parameters; taken for the command they set every driver's range to 0.
    {"parameter_frange", "frange\t[ 0\tlocks=0 ]\t(\t1\t1\t)", "other"},
    {"parameter_frange1", "frange1\t[ 0\tlocks=0 ]\t(\t0\t)", "other"},
    {"version", "set -g _HIP_SAVEVERSION = '19.5.640'", "saveVersion"},
    {"version_in_any_case", "x _hip_saveversion", "saveVersion"},
    {"variable", "set -g JOB = '/proj'", "other", false, true},
    {"variable_in_capitals", "SET -G JOB = '/proj'", "other", false, true},
    {"variable_behind_a_new_header", "HouLC1033.variables\x01set -g JOB = '/proj'", "other", false, true},
    {"variable_behind_an_old_header", "0707070000.variables\x01set -g JOB = '/proj'", "other"},
    {"variable_without_blanks", "set -g JOB='/proj'", "other"},
    {"take", "take name Main kids 0", "take"},
    {"take_with_capital", "Take name Main kids 0", "other"},
    {"driver", "0707070000out/geo1.parm {", "driver"},
    {"driver_without_brace", "out/geo1.parm", "other"},
    {"driver_without_parm", "out/geo1 {", "other"},
    {"plain_object", "obj/box1.parm {", "other"},
    {"geometry_object", "obj/geo1.parm {", "driver"},
    {"mark_and_root_in_any_case", "OBJ/x/REDSHIFT_rop.parm {", "driver"},
    {"alembic", "obj/a/alembic1.parm {", "driver"},
    {"alembic_archive", "obj/alembicarchive1.parm {", "other"},
    {"karma", "stage/karma1.parm {", "driver"},
    {"karma_properties", "stage/karmarenderproperties.parm {", "other"},
    {"usd_driver", "stage/usd_rop1.parm {", "driver"},
    {"composite", "img/comp1.parm {", "driver"},
    {"camera", "obj/cam1.parm {", "camera"},
    {"camera_before_driver", "out/cam_animated.parm {", "camera"},
    {"stereo_camera", "obj/rig/stereocamL.parm {", "camera"},
    {"camera_on_the_stage", "stage/cam1.parm {", "other"},
    {"wedge", "out/wedge1.parm {", "wedge"},
    {"wedge_in_object", "obj/geo1/wedge1.parm {", "wedge"},
    {"wedge_goes_before_camera", "out/cam_wedge.parm {", "wedge"},
    {"render_settings", "stage/rendersettings1.parm {", "usdRenderSettings"},
    {"render_settings_with_capitals", "stage/RenderSettings1.parm {", "driver"},
    {"prman_lop", "stage/hdprman1.parm {", "lop"},
};

std::string kindOf(const _sceneLine& line) {
    constexpr const char* names[] = {"other", "saveVersion", "take", "section"};
    return line.section == nullptr ? names[static_cast<int>(line.kind)] : std::string(line.section->name.data());
}

class SceneLine : public testing::TestWithParam<_case> {};

TEST_P(SceneLine, MeansToTheScan) {
    const _sceneLine line = classifyLine(QString::fromLatin1(GetParam().line));
    EXPECT_EQ(kindOf(line), GetParam().kind);
    EXPECT_EQ(line.isFrameRange, GetParam().frameRange);
    EXPECT_EQ(line.isVariable, GetParam().variable);
}

INSTANTIATE_TEST_SUITE_P(Table, SceneLine, testing::ValuesIn(cases), [](const auto& i) { return i.param.what; });

}  // namespace

}  // namespace vxP
