#include "readers/paramSection.h"

#include <gtest/gtest.h>

#include <QIODevice>

#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;
using vxTest::wide;

QString outerUnquoted(const QString& value) {
    return withoutOuterQuotes(value);
}
QString withoutF1(const QString& value) {
    return withoutChannelReference(value, QStringLiteral("f1"));
}

struct _valueCase {
    const char* what;
    QString (*operation)(const QString&);
    const char *in, *out;
};

constexpr _valueCase valueCases[] = {
    {"parentheses", parenthesised, "f\t[ 0 ]\t(\t1\t2\t)\t(3)", "1\t2"},
    {"inner_parenthesis_cuts", parenthesised, "f\t( a(1).exr )", "a(1"},
    {"outer_keeps_inner_parentheses", outerParenthesised, "f\t( a(1).exr ) x", "a(1).exr"},
    {"leading_quote_alone", outerUnquoted, "\"ab", "ab"},
    {"one_quote", outerUnquoted, "\"", ""},
    {"no_next_field", nextFields, "12", "12"},
    {"every_bracket_of_a_channel", withoutF1, "[ f1\ta[0] ] [ f1\tb ]", "a[0  \tb"},
    {"shortest_node_expression", withoutNodeExpression, "`chsop(\\", ""},
};

class ParamValue : public testing::TestWithParam<_valueCase> {};

TEST_P(ParamValue, IsTakenOutOfItsText) {
    EXPECT_EQ(plain(GetParam().operation(wide(GetParam().in))), GetParam().out);
}

INSTANTIATE_TEST_SUITE_P(Table, ParamValue, testing::ValuesIn(valueCases), vxTest::rowName);

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
    constexpr qint32 closed = 42;
    EXPECT_EQ(readSection(stream, line, note, [] { return closed; }), GetParam().closed ? closed : resultSuccess);
    EXPECT_EQ(plain(parameters), GetParam().parameters);
    EXPECT_EQ(plain(stream.readAll()), GetParam().rest);
}

INSTANTIATE_TEST_SUITE_P(Table, ParamSection, testing::ValuesIn(sectionCases), vxTest::rowName);

}  // namespace

}  // namespace vxP
