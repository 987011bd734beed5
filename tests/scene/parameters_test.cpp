#include "scene/parameters.h"

#include <gtest/gtest.h>

#include "tests/testText.h"

namespace vxN {

namespace {

/// "name:text,channel<text": each parameter with its values; a quoted text is in quotes.
std::string formOf(const _parameters& parameters) {
    std::string form;
    for (const _parameter& parameter : parameters.all()) {
        form += (form.empty() ? "" : " ") + std::string(parameter.name);
        if (parameter.locks != 0) form += '#' + std::to_string(parameter.locks);
        for (const _value& value : parameter.values) {
            const std::string quote = value.isQuoted ? "\"" : "";
            form += (&value == parameter.values.data() ? ":" : ",") + std::string(value.channel) +
                    (value.isDriven() ? "<" : "") + quote + std::string(value.text) + quote;
        }
    }
    return form;
}

struct _blockCase {
    const char* what;
    const char* lines;  ///< between "version 0.8" and the block's end
    const char* form;
};

constexpr _blockCase blockCases[] = {
    {"number", "s\t[ 0\tlocks=0 ]\t(\t1.5\t)\n", "s:1.5"},
    {"attributes", "s\t[ 8\tlocks=5\tautoscope=1\tautosel=1 ]\t(\t1\t2\t)\n", "s#5:1,2"},
    {"no_values", "a\t[ 0\tlocks=0 ]\t(\t)\nb\t[ 0\tlocks=0 ]\t(\t)\n", "a b"},
    {"quoted", "s\t[ 0\tlocks=0 ]\t(\t\"a (b) \\\"c\\\" \\\\ \\n\"\t\"\"\t)\n", R"(s:"a (b) "c" \ \n","")"},
    {"bare_with_escapes", "s\t[ 0\tlocks=0 ]\t(\t`chs(\\\"../a\\\")`\t[\\\"u\\\",{}]\t)\n",
     "s:`chs(\"../a\")`,[\"u\",{}]"},
    {"driven", "f\t[ 0\tlocks=0 ]\t(\t[ f1\t1 ] \t[ f2\t\"a b\" ] \t1\t)\n", "f:f1<1,f2<\"a b\",1"},
    {"driven_with_inner_quotes", "n\t[ 0\tlocks=0 ]\t(\t[ n\t\\\"density\\\" ] \t)\n", "n:n<density"},
    {"driven_without_a_value", "n\t[ 0\tlocks=0 ]\t(\t[ n\t ] \t2\t)\n", "n:n<,2"},
    {"literal_brackets", "s\t[ 0\tlocks=0 ]\t(\t[\t]\t(a)\t)\nt\t[ 0\tlocks=0 ]\t(\t1\t)\n", "s:[,],(a) t:1"},
    {"lines_like_a_parameter", "s\t[ 0\tlocks=0 ]\t(\t\"\nf\t[ 0\tlocks=0 ]\t(\t1\t)\n}\n\"\t)\n",
     "s:\"\nf\t[ 0\tlocks=0 ]\t(\t1\t)\n}\n\""},
    {"other_line_ends", "s\t[ 0\tlocks=0 ]\t(\t\"a\r\nb\"\t)\r\nt\t[ 0\tlocks=0 ]\t(\t1\t)\r\n", "s:\"a\r\nb\" t:1"},
    {"called_version", "version\t[ 0\tlocks=0 ]\t(\t1\t)\n", "version:1"},
    {"ramp", "r\t[ 0\tlocks=0 ]\t(\t2\t)\nr1pos\t[ 0\tlocks=0 ]\t(\t0\t)\nr2pos\t[ 0\tlocks=0 ]\t(\t1\t)\n",
     "r:2 r1pos:0 r2pos:1"},
    {"words_between", "stray words\ns\t[ 0\tlocks=0 ]\t(\t1\t)\n\"more\" x\n", "s:1"},
};

class ParameterBlock : public testing::TestWithParam<_blockCase> {};

TEST_P(ParameterBlock, GivesNamesAndValues) {
    const _parameters parameters("{\nversion 0.8\n" + std::string(GetParam().lines) + "}\n");
    EXPECT_EQ(formOf(parameters), GetParam().form);
    EXPECT_TRUE(parameters.isWhole());
}

INSTANTIATE_TEST_SUITE_P(Table, ParameterBlock, testing::ValuesIn(blockCases), vxTest::rowName);

TEST(ParameterBlocks, KeepWhatStandsBeforeTheyAreCut) {
    const _parameters cut("{\nversion 0.8\na\t[ 0\tlocks=0 ]\t(\t1\t)\nb\t[ 0\tlocks=0 ]\t(\t2\t\"x");
    EXPECT_EQ(formOf(cut), "a:1 b:2");
    EXPECT_FALSE(cut.isWhole());
}

struct _componentCase {
    const char* channel;
    const char* text;  ///< null: there is none
};

constexpr _componentCase componentCases[] = {
    {"tx", "1"},      {"tz", "3"},      {"tw", "3"},     {"ta", nullptr}, {"t1", "1"},
    {"t4", nullptr},  {"t01", nullptr}, {"cg", "5"},     {"sizex", "7"},  {"f1", "10"},
    {"f3", "12"},     {"fz", nullptr},  {"scale", "13"}, {"f", nullptr},  {"rangemax", "15"},
    {"many11", "11"}, {"a1x", "20"},    {"a12", "21"},   {"", nullptr},
};

TEST(ParameterComponents, AreFoundByTheirChannelsOrTheUsualEndings) {
    const std::string attributes = "\t[ 0\tlocks=0 ]\t(\t";
    const _parameters parameters("{\nt" + attributes + "1\t2\t3\t)\nc" + attributes + "4\t5\t6\t)\nsize" + attributes +
                                 "7\t8\t)\nf" + attributes + "[ f1\t10 ] \t11\t12\t)\nscale" + attributes +
                                 "13\t)\nrange" + attributes + "14\t15\t)\nmany" + attributes +
                                 "1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t)\na1" + attributes + "20\t21\t)\n}\n");
    for (const _componentCase& row : componentCases) {
        const _value* const value = parameters.component(row.channel);
        EXPECT_EQ(value == nullptr ? "none" : std::string(value->text), row.text == nullptr ? "none" : row.text)
            << row.channel;
    }
}

/// The names that the scene tells, "-" for the others.
TEST(ParameterComponents, HaveNamesWhereTheSceneTellsThem) {
    const std::string attributes = "\t[ 0\tlocks=0 ]\t(\t";
    const _parameters parameters("{\nt" + attributes + "1\t2\t3\t)\nf" + attributes + "[ f1\t10 ] \t11\t12\t)\nc" +
                                 attributes + "1\t[ cg\t10 ] \t3\t4\t)\nscale" + attributes + "13\t)\nodd" +
                                 attributes + "[ other\t1 ] \t2\t)\nuv" + attributes + "[ uvu\t1 ] \t2\t3\t4\t)\n}\n");
    std::string names;
    for (const _parameter& parameter : parameters.all())
        for (std::size_t place = 0; place < parameter.values.size(); ++place) {
            const std::string name = componentName(parameter, place);
            names += (name.empty() ? "-" : name) + ' ';
        }
    EXPECT_EQ(names, "- - - f1 f2 f3 cr cg cb ca scale other - uvu uvv uvw - ");
}

}  // namespace

}  // namespace vxN
