#include "input/sceneLine.h"

#include <gtest/gtest.h>

namespace vxP {

namespace {

struct _case {
    const char* what;
    const char* line;
    _lineKind kind;
    bool frameRange = false;
    bool variable = false;
};

constexpr _case cases[] = {
    {"comment", "# frange 1 2", _lineKind::other},
    // A file node's parameter; taken for the command it set every driver's range to 0.
    {"parameter_frange1", "frange1\t[ 0\tlocks=0 ]\t(\t0\t)", _lineKind::other},
    {"version_in_any_case", "x _hip_saveversion", _lineKind::saveVersion},
    {"variable_behind_a_new_header", "HouLC1033.variables\x01set -g JOB = '/proj'", _lineKind::other, false, true},
    {"variable_behind_an_old_header", "0707070000.variables\x01set -g JOB = '/proj'", _lineKind::other},
    {"variable_without_blanks", "set -g JOB='/proj'", _lineKind::other},
    {"take_with_capital", "Take name Main kids 0", _lineKind::other},
    {"driver_without_brace", "out/geo1.parm", _lineKind::other},
    {"driver_without_parm", "out/geo1 {", _lineKind::other},
    {"mark_and_root_in_any_case", "OBJ/x/REDSHIFT_rop.parm {", _lineKind::outNode},
    {"alembic_archive", "obj/alembicarchive1.parm {", _lineKind::other},
    {"karma_properties", "stage/karmarenderproperties.parm {", _lineKind::other},
    {"camera_before_driver", "out/cam_animated.parm {", _lineKind::camera},
    {"camera_on_the_stage", "stage/cam1.parm {", _lineKind::other},
    {"wedge_in_object", "obj/geo1/wedge1.parm {", _lineKind::wedge},
    {"wedge_goes_before_camera", "out/cam_wedge.parm {", _lineKind::wedge},
    {"render_settings", "stage/rendersettings1.parm {", _lineKind::usdRenderSettings},
    {"render_settings_with_capitals", "stage/RenderSettings1.parm {", _lineKind::outNode},
};

class SceneLine : public testing::TestWithParam<_case> {};

TEST_P(SceneLine, MeansToTheScan) {
    const _sceneLine line = classifyLine(QString::fromLatin1(GetParam().line));
    EXPECT_EQ(line.kind, GetParam().kind);
    EXPECT_EQ(line.isFrameRange, GetParam().frameRange);
    EXPECT_EQ(line.isVariable, GetParam().variable);
}

INSTANTIATE_TEST_SUITE_P(Table, SceneLine, testing::ValuesIn(cases), [](const auto& i) { return i.param.what; });

}  // namespace

}  // namespace vxP
