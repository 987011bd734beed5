#include "grammar/paramSection.h"

#include <gtest/gtest.h>

#include <QIODevice>

#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;
using vxTest::wide;

TEST(ParamValue, IsTakenOutOfItsText) {
    EXPECT_EQ(plain(parenthesised(wide("f\t[ 0 ]\t(\t1\t2\t)\t(3)"))), "1\t2");
    EXPECT_EQ(plain(parenthesised(wide("f\t( a(1).exr )"))), "a(1");
    EXPECT_EQ(plain(outerParenthesised(wide("f\t( a(1).exr ) x"))), "a(1).exr");
    EXPECT_EQ(plain(withoutOuterQuotes(wide("\"a\"b\""))), "a\"b");
    EXPECT_EQ(plain(withoutOuterQuotes(wide("\""))), "");
    EXPECT_EQ(plain(nextFields(wide("12"))), "12");
    EXPECT_EQ(plain(withoutChannelReference(wide("[ f1\ta[0] ] [ f1\tb ]"), wide("f1"))), "a[0  \tb");
    EXPECT_EQ(plain(withoutNodeExpression(wide("`chsop(\\"))), "");
    EXPECT_EQ(integerOf(wide({"12\0", 3})), 0);  // 12 with Qt 6, unless told otherwise
}

struct _sectionCase {
    const char* what;
    const char16_t* text;
    const char* parameters;  ///< each ended by "|"
    bool closed;
    const char* rest;  ///< what the next reader finds
};

constexpr _sectionCase sectionCases[] = {
    {"blank_lines_and_comments", u"\n \t \na\n#b\n  # c\td\n}\nd\n", "a|", true, "d\n"},
    {"white_space_of_all_kinds", u"\u00a0\u2003\v\f\r\n\u3000 a\t1\t \r\n\v}\n", "a\t1|", true, ""},
    {"text_behind_the_brace", u"a\n }x\t( 1 )\nb\n", "a|", true, "b\n"},
    {"brace_at_the_end_of_a_line", u"a }\nb{}\n}", "a }|b{}|", true, ""},
    {"brace_in_a_value_of_several_lines", u"a\t(\t\"{\n}\nb\"\t)\n}\n", "a\t(\t\"{|", true, "b\"\t)\n}\n"},
    {"cut_off", u"a\nb", "a|b|", false, ""},
};

class ParamSection : public testing::TestWithParam<_sectionCase> {};

TEST_P(ParamSection, IsReadUpToItsBrace) {
    QString text = QString::fromUtf16(GetParam().text);
    QTextStream stream(&text, QIODevice::ReadOnly);
    QString line, parameters;
    const auto note = [&](const QString& parameter) {
        parameters += parameter + u'|';
        return _step::next;
    };
    EXPECT_EQ(readSection(stream, line, note, [] { return 42; }), GetParam().closed ? 42 : resultSuccess);
    EXPECT_EQ(plain(parameters), GetParam().parameters);
    EXPECT_EQ(plain(stream.readAll()), GetParam().rest);
}

INSTANTIATE_TEST_SUITE_P(Table, ParamSection, testing::ValuesIn(sectionCases), vxTest::rowName);

}  // namespace

}  // namespace vxP
