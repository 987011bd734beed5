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
    {"comment", "# frange 1 2", "other"},
    // A file node's parameter; taken for the command it set every driver's range to 0.
    {"parameter_frange1", "frange1\t[ 0\tlocks=0 ]\t(\t0\t)", "other"},
    {"version_in_any_case", "x _hip_saveversion", "saveVersion"},
    {"variable_behind_a_new_header", "HouLC1033.variables\x01set -g JOB = '/proj'", "other", false, true},
    {"variable_behind_an_old_header", "0707070000.variables\x01set -g JOB = '/proj'", "other"},
    {"variable_without_blanks", "set -g JOB='/proj'", "other"},
    {"take_with_capital", "Take name Main kids 0", "other"},
    {"driver_without_brace", "out/geo1.parm", "other"},
    {"driver_without_parm", "out/geo1 {", "other"},
    {"mark_and_root_in_any_case", "OBJ/x/REDSHIFT_rop.parm {", "driver"},
    {"alembic_archive", "obj/alembicarchive1.parm {", "other"},
    {"karma_properties", "stage/karmarenderproperties.parm {", "other"},
    {"camera_before_driver", "out/cam_animated.parm {", "camera"},
    {"camera_on_the_stage", "stage/cam1.parm {", "other"},
    {"wedge_in_object", "obj/geo1/wedge1.parm {", "wedge"},
    {"wedge_goes_before_camera", "out/cam_wedge.parm {", "wedge"},
    {"render_settings", "stage/rendersettings1.parm {", "usdRenderSettings"},
    {"render_settings_with_capitals", "stage/RenderSettings1.parm {", "driver"},
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
