#include <gtest/gtest.h>

#include "evaluate/syntax.h"
#include "tests/evaluate/smallScene.h"
#include "tests/testText.h"

namespace vxV {

namespace {

using vxTest::nodeText;
using vxTest::shown;

struct _case {
    const char *what, *expression;
    const char* value;  ///< as `shown`
};

constexpr _case cases[] = {
    // operators, from loose to tight
    {"product_before_sum", "2 + 3 * 4", "14"},
    {"division_is_of_floats", "7 / 2", "3.5"},
    {"from_the_left", "10 - 4 - 3", "3"},
    {"brackets", "(2 + 3) * -4", "-20"},
    {"power", "2 * 3 ^ 2", "18"},
    {"power_of_a_sign", "-2 ^ 2", "uncertain: ^"},
    {"chain_of_powers", "2 ^ 3 ^ 2", "uncertain: ^"},
    {"not_before_comparison", "!0 == 1", "1"},
    {"and_before_or", "1 || 0 && 0", "1"},
    {"comparison_before_equality", "1 < 2 == 2 > 1", "1"},
    {"remainder", "7.5 % 2", "1.5"},
    {"remainder_of_a_negative", "-7 % 2", "uncertain: %"},
    {"division_by_zero", "1 / 0", "undefinedResult: /"},
    {"nearly_equal", "0.1 + 0.2 == 0.3", "uncertain: =="},
    {"texts_join", "\"v\" + '00' + 4", "'v004'"},
    {"number_and_text", "4 + \"a\"", "uncertain: +"},
    {"text_that_is_a_number", "\"4\" * 2", "8"},
    {"text_that_is_none", "\"a\" * 2", "notANumber: a"},
    {"equal_texts", "\"a\" == 'a'", "1"},
    {"exponent", "1.5e2 + .5", "150.5"},
    // what is not needed is not evaluated
    {"choice_of_the_first", "if(1, 2, bbox(0, D_XMIN))", "2"},
    {"choice_of_the_second", "ifs(0, detail(0), \"b\")", "'b'"},
    {"or_decided_by_either", "npoints(0) || 1", "1"},
    {"and_decided_by_either", "npoints(0) && 0", "0"},
    {"and_not_decided", "npoints(0) && 1", "geometry: npoints"},
    // texts
    {"escapes", R"("a\"b\\c" + 'd\'e')", "'a\"b\\cd'e'"},
    {"uncertain_escape", R"("a\n")", "uncertain: \"a\\n\""},
    {"variable_in_double_quotes", "\"$OS.$F4\"", "'a.0005'"},
    {"variable_in_single_quotes", "'$OS' + 4", "'$OS4'"},
    {"number_in_a_text", "\"a\" + 0.25", "'a0.25'"},
    {"too_many_digits_in_a_text", "\"a\" + 1 / 3", "numberAsText: 0.3333333333333333"},
    {"functions_of_texts", "strlen(\"abc\") + index(\"abc\", \"c\") * 10 + strmatch(\"a*c\", \"abc\") * 100", "123"},
    {"equal_is_zero", "strcmp(\"a\", \"a\")", "0"},
    {"replaced", "strreplace(\"a.b.c\", \".\", \"--\") + substr(\"abcdef\", 2, 3)", "'a--b--ccde'"},
    {"padded", "padzero(4, 12) + fpadzero(3, 2, 1.5) + fpadzero(4, 0, 7)", "'0012001.500007'"},
    {"words", "arg(\"a bc  d\", 1) + argc(\"a bc  d\")", "'bc3'"},
    {"letter_case", "toupper(\"aB1\") + tolower(\"aB1\")", "'AB1ab1'"},
    // numbers
    {"degrees", "sin(90) + cos(180) + tan(45) + asin(1) + atan2(1, 1)", "136"},
    {"fits", "fit(5, 0, 10, 0, 1) + fit01(2, 0, 10) + fit10(1, 3, 9) + fit11(0, 0, 8)", "17.5"},
    {"clamp_with_swapped_limits", "clamp(1, 180, 55) + smooth(0.5, 0, 1)", "55.5"},
    {"whole", "int(-1.5) + floor(-1.5) + ceil(1.2) + rint(1.4)", "0"},
    {"half", "rint(2.5)", "uncertain: rounding a half"},
    {"outside_the_domain", "sqrt(-1)", "undefinedResult: sqrt"},
    {"powers", "pow(2, 10) + max(1, 2) - min(1, 2) + abs(-3) + log10(100)", "1030"},
    // blocks
    {"block", "{ if (0) { return 1; } else { return 2; } }", "2"},
    {"block_without_brackets", "{ a = 2; if (a > 1) return a * 10; return 0; }", "20"},
    {"assignments", "{ float a = 7; a -= 1; a *= 3; a /= 2; a += 1; return a; }", "10"},
    {"loop", "{ s = \"\"; for (i = 0; i < 3; i++) { s += i; } return s; }", "'012'"},
    {"else_if", "{ if (0) return 1; else if (1) return 2; else return 3; }", "2"},
    {"no_return", "{ a = 1; }", "noResult: "},
    {"endless_loop", "{ while (1) { } }", "tooMuchWork: "},
    {"growing_text", "{ s = \"ab\"; while (1) { s += s; } }", "tooLong: +"},
    // time and variables: frame 5 of 1 to 48 at 24 frames a second
    {"frame_and_time", "$F + $FF + $T * $FPS", "14"},
    {"ranges", "$FSTART + $FEND + $RFSTART + $RFEND + $NFRAMES", "127"},
    {"range_in_seconds", "$TSTART + $TEND", "1.958333333"},
    {"saved_variable", "\"$JOB\"", "'/projects/kettle'"},
    {"number_in_a_variable", "$PI > 3", "1"},
    {"environment", "\"${SHOT}\"", "'tt010'"},
    {"unset", "$HOME", "unsetVariable: HOME"},
    {"cooking", "$PT + 1", "cookingVariable: PT"},
    // channels and parameters of nodes
    {"components", "ch(\"../b/tx\") + ch(\"../b/tz\") + ch('/obj/b/cg') + ch(\"../b/size2\") + ch(\"../b/rangemax\")",
     "34"},
    {"driven", "ch(\"../b/driven\")", "6"},
    {"at_another_frame", "chf(\"../b/driven\", 7)", "8"},
    {"at_a_time", "cht(\"../b/driven\", 0.25)", "8"},
    {"toggles", "ch(\"../b/flag\") * 10 + ch(\"../b/unflag\")", "10"},
    {"shared_menus", "ch(\"../b/trange\") + ch(\"../b/ramp2interp\")", "3"},
    {"other_menu", "ch(\"../b/mode\")", "menuOrder: mode"},
    {"text_of_another_node", "chs(\"../b/file\")", "'/shots/b.5.geo'"},
    {"raw_text", "chsraw(\"../b/file\")", "'$HIP/$OS.$F.geo'"},
    {"number_as_text", "\"v\" + chs(\"../b/tx\")", "'v1'"},
    {"driven_menu_as_text", "chs(\"../b/rOrd\") + chs(\"../b/driven\")", "'xzy6'"},
    {"menu_as_text", "chs(\"../b/mode\")", "'fast'"},
    {"no_parameter", "ch(\"../b/none\")", "missingParameter: none"},
    {"no_node", "ch(\"../none/tx\")", "missingNode: ../none"},
    {"locked_contents", "ch(\"../asset/inside/tx\")", "lockedContents: ../asset/inside"},
    {"property", "property(\"../b/tx\", 9) + property(\"../b/none\", 9)", "10"},
    {"type_of_a_node", "optype(\"../b\") + optype(\"../typed\")", "uncertain: labs::thing::2.0"},
    {"named_node", "chsop(\"../b/node\") + chsop(\"../b/empty\")", "'/obj/a'"},
    {"name_of_a_node", "opname(\"..\") + opfullpath(\"../b\")", "'obj/obj/b'"},
    {"digits", "opdigits(\"../mix12up3\") * 100 + opdigits($OS + \"7\")", "307"},
    {"input", "opinputpath(\".\", 0) + opinput(\".\", 0) + opinputpath(\".\", 1)", "'/obj/bb'"},
    {"creator", "opcreator(\"/obj/dops/grav\")", "'/obj/dops'"},
    {"stamp", "stamp(\"..\", \"n\", 4)", "4"},
    {"word_as_text", "ch(tx) + 1", "2"},
    // what needs more than the scene
    {"geometry", "1 + centroid(\"../b\", D_X)", "geometry: centroid"},
    {"random", "rand($F)", "random: rand"},
    {"attribute", "@N.x", "contextOption: @N.x"},
    {"saved_options", "@kind + @shot.size * 2", "'far9'"},
    {"range_of_no_render", "@fps * @ropinc", "48"},
    {"range_that_may_be_either", "@ropstart", "contextOption: @ropstart"},
    {"unknown_function", "frobnicate(1)", "unknownFunction: frobnicate"},
    {"wrong_number_of_arguments", "sin(1, 2)", "wrongArguments: sin"},
    {"not_an_expression", "640 480 1", "syntax: 480"},
    {"unfinished", "1 +", "syntax: its end"},
};

class Expressions : public testing::TestWithParam<_case> {};

TEST_P(Expressions, HaveAValueOrAReason) {
    const vxTest::_smallScene small({
        nodeText("obj", "obj", ""),
        nodeText("obj/a", "geo", "x=[x 0]|tx=1", {{"x", GetParam().expression}}),
        {{"obj/a.def", "inputs\n{\n0 \tb 0 1\n}\n"}},
        nodeText("obj/b", "geo",
                 "t=1 2 3|c=0.5 10 1|size=4 5|range=1 15|driven=[driven 0]|rOrd=[rOrd "
                 "0]|flag=\"on\"|unflag=\"off\"|trange=\"on\"|"
                 "ramp2interp=\"linear\"|mode=\"fast\"|file=$HIP/$OS.$F.geo|node=../a|empty=\"\"",
                 {{"driven", "$F + 1"}, {"rOrd", "1"}}),
        {{"obj/asset.init", "type = thing\nmatchesdef = 1\n"}, {"obj/asset.def", ""}, {"obj/asset.parm", "{\n}\n"}},
        nodeText("obj/mix12up3", "geo", ""),
        nodeText("obj/typed", "labs::thing::2.0", ""),
        nodeText("obj/a7", "geo", ""),
        nodeText("obj/dops", "dopnet", ""),
        nodeText("obj/dops/grav", "gravity", ""),
    });
    _evaluator evaluator(small.scene, small.options());
    const vxN::_node node = small.scene.find("/obj/a");
    const std::string first = shown(evaluator.channelValue(node, "x"));
    EXPECT_EQ(first, GetParam().value);
    EXPECT_EQ(shown(evaluator.channelValue(node, "x")), first) << "the second time";
}

INSTANTIATE_TEST_SUITE_P(Table, Expressions, testing::ValuesIn(cases), vxTest::rowName);

constexpr _case scripts[] = {
    {"text_that_is_empty",
     "import loputils\nfrom pxr import Usd\n\nlop = hou.node('.')\npath = lop.evalParm('empty')\n# none\n"
     "if not path:\n    return 7\n\nreturn loputils.size(lop, path)",
     "7"},
    {"text_that_is_not", "n = hou.pwd()\np = n.evalParm(\"file\")\nif not p:\n    return 7\nreturn 8", "8"},
    {"number_that_may_be_a_text", "p = hou.pwd().evalParm('zero')\nif not p:\n    return 7\nreturn 8", "python: "},
    {"name_with_another_meaning", "p = hou.pwd().evalParm('empty')\np = q\nif not p:\n    return 7", "python: "},
    {"no_such_parameter", "p = hou.pwd().evalParm('none')\nif not p:\n    return 7", "missingParameter: none"},
    {"more_than_one_statement", "p = pwd().evalParm('empty')\nif not p:\n    p = 1\n    return 7", "python: "},
    {"channel", "hou.ch('../b/tx')", "3"},
    {"number", "-2.5", "-2.5"},
    {"calculation", "1 / 2", "python: "},
    {"other_node", "hou.node('../b').evalParm('tx')", "python: "},
    {"itself", "ch('x')", "cycle: x"},
};

class Scripts : public testing::TestWithParam<_case> {};

TEST_P(Scripts, HaveAValueWhereItIsCertain) {
    const std::string script = GetParam().expression;
    std::string escaped;
    for (const char c : script) escaped += c == '"' ? std::string("\\\"") : std::string(1, c);
    const vxTest::_smallScene small(
        {nodeText("obj", "obj", ""), nodeText("obj/b", "geo", "tx=3"),
         nodeText("obj/a", "geo", "x=[x 0]|empty=\"\"|file=/a.exr|zero=0",
                  {{"x", "segment { length = 0 expr = \"" + escaped + "\" language = python }"}})});
    _evaluator evaluator(small.scene, small.options());
    const std::string value = shown(evaluator.channelValue(small.scene.find("/obj/a"), "x"));
    EXPECT_EQ(value.substr(0, value.starts_with("python: ") ? 8 : value.size()), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Table, Scripts, testing::ValuesIn(scripts), vxTest::rowName);

TEST(Expressions, AreBounded) {
    const auto reasonFor = [](const std::string& expression) {
        const auto tree = readExpression(expression);
        return tree ? "read" : std::string(wordsOf(tree.why().reason).code.latin1());
    };
    EXPECT_EQ(reasonFor(std::string(100'000, ' ') + "1"), "tooLong");
    EXPECT_EQ(reasonFor(std::string(10'000, '(')), "tooDeep");
    EXPECT_EQ(reasonFor(std::string(10'000, '!') + "1"), "tooDeep");
    EXPECT_EQ(reasonFor(std::string(10'000, '{')), "tooDeep");
    std::string sum = "1";
    for (int i = 0; i < 10'000; ++i) sum += "+1";
    EXPECT_EQ(reasonFor(sum), "tooDeep");
}

}  // namespace

}  // namespace vxV
