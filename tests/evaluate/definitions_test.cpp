#include "evaluate/definitions.h"

#include <gtest/gtest.h>

#include "tests/evaluate/smallScene.h"

namespace vxV {

namespace {

using vxTest::nodeText;
using vxTest::shown;

constexpr const char* script = R"script(# Dialog script for thing
{
    name thing
    parm {
        name    "mode"
        label   "Mode"
        type    ordinal
        default { "auto" }
        hidewhen "{ other == 1 }"
        menu    { "auto" "By Itself" "fast" "Quickly" "off" "Not" }
        range   { 0 1 }
    }
    group {
        name "folder"
        parm { name "flag" type toggle default { "1" } }
        parm { name "scripted" type ordinal default { "0" } menu { [ "return ['a', 'b']" ] language python } }
        multiparm { name "ramp" parm { name "ramp#kind" type ordinal default { "0" } menu { "x" "X" "y" "Y" } } }
    }
    parm { name "mode2" baseparm label "Again" }
    parm { name "size" type vector size 3 default { "1" [ "ch(\"size1\")" hscript-expr ] "2.5" } }
}
)script";

std::string number(std::size_t value) {
    std::string bytes;
    for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(value >> shift);
    return bytes;
}

std::string library(const std::vector<vxTest::_entryText>& sections) {
    std::string rows = "INDX" + number(0) + number(5) + "label" + number(sections.size());
    std::string contents;
    for (const auto& [name, body] : sections) {
        rows += number(name.size()) + name + number(contents.size()) + number(body.size()) + number(0);
        contents += body;
    }
    return rows + contents;
}

TEST(Definitions, TellParameters) {
    const auto parameters = readDialogScript(script);
    ASSERT_EQ(parameters.size(), 5U) << "what only repeats a parameter of the type defines none";
    EXPECT_EQ(parameters[0].tokens, (std::vector<std::string>{"auto", "fast", "off"}));
    EXPECT_TRUE(parameters[1].isSwitch());
    EXPECT_TRUE(parameters[2].tokens.empty()) << "a script makes them";
    EXPECT_EQ(parameters[4].defaults, (std::vector<std::string>{"1", "ch(\"size1\")", "2.5"}));
    EXPECT_EQ(findDefinition(parameters, "ramp12kind"), &parameters[3]);
    EXPECT_EQ(findDefinition(parameters, "ramp#kin"), nullptr);
}

TEST(Definitions, LibrariesAreReadToTheirEndsOnly) {
    const std::string whole = library({{"a", "1234"}, {"b", "56"}});
    ASSERT_EQ(readLibrary(whole).size(), 2U);
    EXPECT_EQ(readLibrary(whole)[1].content, "56");
    EXPECT_EQ(readLibrary(whole.substr(0, whole.size() - 1)).size(), 1U);
    for (std::size_t length = 0; length < whole.size() - 6; ++length) {
        EXPECT_TRUE(readLibrary(std::string_view(whole).substr(0, length)).empty()) << length;
    }
}

TEST(Definitions, GiveMenusTheirNumbers) {
    const std::string definition = library({{"DialogScript", script}});
    const vxTest::_smallScene small({
        {{".OPdummydefs",
          library({{"my::Sop/thing::2.0", definition}, {"Sop/twice", definition}, {"Lop/twice", definition}})}},
        nodeText("obj", "obj", ""),
        nodeText("obj/a", "my::thing::2.0",
                 "mode=\"off\"|driven=[driven 0]|flag=[flag 0]|ramp1kind=\"y\"|scripted=\"b\"",
                 {{"driven", "ch(\"mode\")"}, {"flag", "1"}}),
        nodeText("obj/b", "twice", "mode=\"fast\""),
        nodeText("obj/c", "null", "mode=[mode 0]", {{"mode", "1"}}),
        {{"obj/c.spareparmdef", script}},
    });
    const auto numberOf = [&](const char* node, const char* name, const _options& options) {
        return shown(asValue(_evaluator(small.scene, options).number(small.scene.find(node), name)));
    };
    EXPECT_EQ(numberOf("/obj/a", "mode", small.options()), "2") << "not a switch";
    EXPECT_EQ(numberOf("/obj/a", "ramp1kind", small.options()), "1");
    EXPECT_EQ(numberOf("/obj/a", "scripted", small.options()), "menuOrder: scripted");
    EXPECT_EQ(numberOf("/obj/b", "mode", small.options()), "menuOrder: mode") << "two kinds of nodes have the type";
    EXPECT_EQ(numberOf("/obj/a", "ramp1kind", {}), "menuOrder: ramp1kind") << "without definitions";
    _evaluator evaluator(small.scene, small.options());
    EXPECT_EQ(shown(asValue(evaluator.text(small.scene.find("/obj/c"), "mode"))), "'fast'");
    EXPECT_EQ(shown(asValue(evaluator.text(small.scene.find("/obj/a"), "flag"))), "'on'");
}

}  // namespace

}  // namespace vxV
