// The text of the progress line.
#include "host/batch/progress.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QTemporaryFile>

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

TEST(ReadingLine, TellsWhatIsKnownOfASingleScene) {
    const auto line = [](const vxH::_sceneReading& reading, int width) {
        return vxTest::plain(vxH::readingLine(reading, 3, width));
    };
    EXPECT_EQ(line({400'000'000, 1'300'000'000}, 45), "[=====>            ] 0.4 of 1.3 GB read  0:03");
    EXPECT_EQ(line({70'000'000, 70'000'000}, 22), "70 of 70 MB read  0:03");
    EXPECT_EQ(line({}, 80), "0:03");
}

TEST(Reading, IsThatOfTheProcessThatHasTheSceneOpen) {
    QTemporaryFile scene;
    ASSERT_TRUE(scene.open() && scene.write("0123456789") == 10 && scene.flush());
    ASSERT_EQ(lseek(scene.handle(), 4, SEEK_SET), 4);
    const auto found = vxH::readingOf(getpid(), scene.fileName());
    EXPECT_EQ(std::pair(found.read, found.size), std::pair(qint64{4}, qint64{10}));
    EXPECT_EQ(vxH::readingOf(getpid(), QStringLiteral("/dev/null/none")).size, 0);
}

INSTANTIATE_TEST_SUITE_P(Table, ProgressLine, testing::ValuesIn(lines), vxTest::rowName);

}  // namespace
