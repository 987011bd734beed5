#include "grammar/houdiniVariables.h"

#include <gtest/gtest.h>

#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;
using vxTest::wide;

struct _textCase {
    const char *what, *in, *out, *layer = "/out/render1";
    double start = 1001, end = 1100;
};

constexpr _textCase textCases[] = {
    {"folder_and_name", "$HIP/${hippath}r/$HIPNAME.$F4.exr", "/proj///proj/r/shot.v2.$F4.exr"},
    {"name_in_all_forms", "$hipname:r ${HipName}:R $hipname ${hipname}", "shot.v2 shot.v2 shot.v2 shot.v2"},
    {"variable_in_all_forms", "$JOB:r $job ${JOB}:R ${Job}", "/job/a /job/a.hip /job/a /job/a.hip"},
    {"earlier_variable_wins", "$JOBX ${JOBX}", "/job/a.hipX /x"},
    {"root_drops_every_scene_extension", "$MANY:r $MANY", "/a/b/c.HIP /a.hiplc/b.hip/c.HIP.hipnc"},
    {"value_with_a_later_variable", "$LATE", "render1"},
    {"driver", "$OS ${os}", "render1 render1"},
    {"range_in_all_forms", "$RFSTART ${rfstart} $rfend ${RFEND}", "1001 1001 1100 1100"},
    {"range_of_six_digits", "$RFSTART-$RFEND", "123456-1.23457e+06", "", 123456, 1234567},
    {"left_for_the_host", "<ValueVar @$AOV.> <Channel> $F4 $UNKNOWN %4d",
     "<ValueVar @$AOV.> <Channel> $F4 $UNKNOWN %4d"},
};

class HoudiniVariables : public testing::TestWithParam<_textCase> {};

TEST_P(HoudiniVariables, AreReplacedByWhatTheyStandFor) {
    const auto job = std::make_unique<vxJ::_JobBasics_largePath>();
    job->sceneDatabaseDir = u"/proj/";
    job->layer = QStringView{wide(GetParam().layer)};
    job->sceneSettings.seqStart = GetParam().start;
    job->sceneSettings.seqEnd = GetParam().end;
    QList<_namevalue> variables;
    for (const char* variable :
         {"JOB=/job/a.hip", "JOBX=/x", "MANY=/a.hiplc/b.hip/c.HIP.hipnc", "LATE=$OS", "EARLY=$HIP"})
        variables.append({wide(variable).section(u'=', 0, 0), wide(variable).section(u'=', 1)});
    const _vxString<500> scene(u"/proj/shot.v2.hip");
    EXPECT_EQ(plain(replaceHoudiniVariables(wide(GetParam().in), job.get(), variables, scene)), GetParam().out);
}

INSTANTIATE_TEST_SUITE_P(Table, HoudiniVariables, testing::ValuesIn(textCases), vxTest::rowName);

}  // namespace

}  // namespace vxP
