#include "evaluate/keys.h"

#include <gtest/gtest.h>

#include "tests/evaluate/smallScene.h"
#include "tests/testText.h"

namespace vxV {

namespace {

struct _case {
    const char *what, *segments;
    double frame;  ///< of 24 a second
    const char* value;
};

// Two seconds from frame 1 on.
constexpr const char* linear =
    "segment { length = 2 value = 1 3 expr = linear() } segment { length = 0 value = 3 3 expr = linear() }";
constexpr const char* constant =
    "segment { length = 1 value = 4 4 expr = constant() } segment { length = 0 value = 7 7 expr = constant() }";
constexpr const char* bezier =
    "segment { length = 1 value = 0 1 accel = 0.333333333333 0.333333333333 expr = bezier() } "
    "segment { length = 0 value = 1 0 expr = bezier() }";
// Handles of a slope of 3: their time is accel / sqrt(1 + 9) = 0.5.
constexpr const char* steep =
    "segment { length = 1 value = 0 1 slope = 3 3 accel = 1.58113883 1.58113883 expr = bezier() } "
    "segment { length = 0 value = 1 0 expr = bezier() }";
constexpr const char* wild =
    "segment { length = 1 value = 0 1 accel = 3 3 expr = bezier() } "
    "segment { length = 0 value = 1 0 expr = bezier() }";
constexpr const char* cubic =
    "segment { length = 1 value = 0 2 slope = 0 0 expr = cubic() } segment { length = 0 value = 2 2 expr = cubic() }";
constexpr const char* eased =
    "segment { length = 1 value = 0 2 expr = ease() } segment { length = 0 value = 2 2 expr = ease() }";
constexpr const char* mixed =
    "start = 1 segment { length = 1 expr = \"$F * 2\" } segment { length = 0 value = 9 9 expr = constant() }";

constexpr _case cases[] = {
    {"linear_between", linear, 13, "1.5"},
    {"linear_on_the_last_key", linear, 49, "3"},
    {"before_the_keys", linear, -20, "1"},
    {"behind_the_keys", linear, 100, "3"},
    {"constant_holds", constant, 24, "4"},
    {"constant_on_the_next_key", constant, 25, "7"},
    {"bezier_in_the_middle", bezier, 13, "0.5"},
    {"bezier_begins_slowly", bezier, 7, "0.15625"},
    {"slopes_a_second", steep, 13, "0.5"},
    {"handles_too_long", wild, 13, "interpolation: bezier handles"},
    {"cubic", cubic, 7, "0.3125"},
    {"unknown_between", eased, 13, "interpolation: ease()"},
    {"unknown_on_a_key", eased, 25, "2"},
    {"expression_within_keys", mixed, 30, "60"},
    {"expression_before_its_key", mixed, 2, "4"},
    {"key_behind_an_expression", mixed, 49, "9"},
};

class Keys : public testing::TestWithParam<_case> {};

TEST_P(Keys, AreJoined) {
    const vxTest::_smallScene small({vxTest::nodeText("obj", "obj", ""),
                                     vxTest::nodeText("obj/a", "geo", "x=[x 0]", {{"x", GetParam().segments}})});
    _evaluator evaluator(small.scene);
    evaluator.setFrame(GetParam().frame);
    _dependence dependence;
    EXPECT_EQ(vxTest::shown(evaluator.channelValue(small.scene.find("/obj/a"), "x", &dependence)), GetParam().value);
    EXPECT_TRUE(dependence.time);
}

INSTANTIATE_TEST_SUITE_P(Table, Keys, testing::ValuesIn(cases), vxTest::rowName);

TEST(Keys, ContinueOutside) {
    const std::array segments{vxN::_segment{1, {0, 4}, {}, {}, vxN::_interpolation::linear, "linear()", {}},
                              vxN::_segment{0, {4, 4}, {}, {}, vxN::_interpolation::linear, "linear()", {}}};
    vxN::_channel channel{"x", 2, segments, {}, {}, {}, {}};
    const auto valueAt = [&](vxN::_extend rule, double seconds) {
        channel.before = channel.behind = rule;
        return vxTest::shown(channelAtTime(channel, seconds, {}));
    };
    EXPECT_EQ(valueAt(vxN::_extend::cycle, 4.25), "1");
    EXPECT_EQ(valueAt(vxN::_extend::cycle, 0.25), "1");
    EXPECT_EQ(valueAt(vxN::_extend::cycleoffset, 4.25), "9");
    EXPECT_EQ(valueAt(vxN::_extend::cycleoffset, 0.25), "-7");
    EXPECT_EQ(valueAt(vxN::_extend::slope, 4.25), "interpolation: outside the keys");
    EXPECT_EQ(valueAt(vxN::_extend::slope, 2.25), "1");
}

}  // namespace

}  // namespace vxV
