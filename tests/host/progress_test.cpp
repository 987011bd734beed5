// The text of the progress line.
#include "host/batch/progress.h"

#include <gtest/gtest.h>

#include "tests/testText.h"

namespace {

struct _line {
    const char* what;
    vxH::_progressState state;
    double seconds;
    int width;
    const char* text;
};
constexpr _line lines[] = {
    {"half", {120, 240, true}, 4, 80, "[===============>              ] 120/240 scenes  30/s  0:04 left"},
    {"all", {3, 3, true}, 0.5, 60, "[==============================] 3/3 scenes  6/s  0:00 left"},
    {"hours", {1, 100001, true}, 0.1, 40, "1/100001 scenes  10/s  2:46:40 left"},
    {"shorter_bar", {1, 2, true}, 90, 40, "[===>   ] 1/2 scenes  0.011/s  1:30 left"},
    {"no_room_for_a_bar", {120, 240, true}, 4, 38, "120/240 scenes  30/s  0:04 left"},
    {"total_unknown", {120, 240, false}, 2, 80, "120 scenes  60/s"},
};

class ProgressLine : public testing::TestWithParam<_line> {};

TEST_P(ProgressLine, TellsWhatIsKnownInTheWidth) {
    const auto& row = GetParam();
    EXPECT_EQ(vxTest::plain(vxH::progressLine(row.state, row.seconds, row.width)), row.text);
}

INSTANTIATE_TEST_SUITE_P(Table, ProgressLine, testing::ValuesIn(lines), vxTest::rowName);

}  // namespace
