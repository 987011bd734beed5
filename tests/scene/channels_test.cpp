#include "scene/channels.h"

#include <gtest/gtest.h>

#include "tests/testText.h"

namespace vxN {

namespace {

std::string formOf(const _inOut& pair) {
    return std::to_string(static_cast<int>(pair.in)) + ',' + std::to_string(static_cast<int>(pair.out));
}

/// Expressions in brackets, keys with length, value, slope and way of going on.
std::string formOf(const _channel& channel) {
    std::string form(channel.name);
    for (const _segment& segment : channel.segments) {
        form += segment.interpolation == _interpolation::expression
                    ? " [" + std::string(segment.expression) + "]" + std::string(segment.language)
                    : " " + std::to_string(static_cast<int>(segment.length)) + ":" + formOf(segment.value) + ":" +
                          formOf(segment.slope) + ":" + std::to_string(static_cast<int>(segment.interpolation));
    }
    return form;
}

struct _channelCase {
    const char* what;
    const char* channel;
    const char* form;
};

constexpr _channelCase channelCases[] = {
    {"bare", "f1 { segment { length = 0 value = 1 1 expr = $FSTART } }", "f1 [$FSTART]"},
    {"bare_with_escapes", R"(t { segment { length = 0 expr = ch(\"../tx\") } })", "t [ch(\"../tx\")]"},
    {"spans_lines", "t { segment { length = 0 expr = \"{\n  return \\\"}\\\";\n}\n\" } }",
     "t [{\n  return \"}\";\n}\n]"},
    {"language", "t { segment { length = 0 expr = \"hou.frame() + 1\" language = python } }",
     "t [hou.frame() + 1]python"},
    {"options", "t { segment { options = {\t autoslope  ai ao }\n\n length = 0 expr = $F } }", "t [$F]"},
    {"keys",
     "r { start = 2 segment { length = 5 value = 0 13 slope = 0 52 accel = 0.04 16.5\n expr = bezier() } "
     "segment { length = 0 value = 25 expr = linear() } }",
     "r 5:0,13:0,52:1 0:25,25:0,0:2"},
    {"no_number", "r { segment { length = x value = nan 1 expr = constant() } }", "r 0:0,0:0,0:3"},
    {"without_segments", "r { default = 1 flags = 0 }", "r"},
};

class ChannelBlock : public testing::TestWithParam<_channelCase> {};

TEST_P(ChannelBlock, GivesExpressionsAndKeys) {
    const _channels channels("{\n    channel " + std::string(GetParam().channel) + "\n  }\n");
    ASSERT_EQ(channels.all().size(), 1U);
    EXPECT_EQ(formOf(channels.all()[0]), GetParam().form);
    EXPECT_TRUE(channels.isWhole());
}

INSTANTIATE_TEST_SUITE_P(Table, ChannelBlock, testing::ValuesIn(channelCases), vxTest::rowName);

TEST(ChannelBlocks, TellWhatStandsAroundTheSegments) {
    const _channels channels(
        "{ channel a { lefttype = cycle righttype = somehow default = 30 start = 8.25 segment { length = 0 expr = "
        "bezier() } }\nchannel b { lefttype = extend defaultString = \\\"density\\\" segment { length = 0 expr = x } "
        "}\n"
        "channel c { segment { length = 1 expr = 1 }");
    const _channel& a = *channels.find("a");
    EXPECT_EQ(a.before, _extend::cycle);
    EXPECT_EQ(a.behind, _extend::other);
    EXPECT_EQ(a.defaultNumber, 30);
    EXPECT_EQ(a.start, 8.25);
    EXPECT_FALSE(a.isExpression() || a.defaultText);
    const _channel& b = *channels.find("b");
    EXPECT_EQ(b.defaultText, "density");
    EXPECT_TRUE(b.isExpression());
    EXPECT_EQ(channels.find("c")->segments.size(), 1U);
    EXPECT_EQ(channels.find("d"), nullptr);
    EXPECT_FALSE(channels.isWhole());
}

}  // namespace

}  // namespace vxN
