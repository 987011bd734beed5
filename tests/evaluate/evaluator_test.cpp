#include "evaluate/evaluator.h"

#include <gtest/gtest.h>

#include "evaluate/sequenceText.h"
#include "tests/evaluate/smallScene.h"
#include "tests/testText.h"

namespace vxV {

namespace {

using vxTest::nodeText;
using vxTest::shown;

struct _textCase {
    const char *what, *text;
    const char *plain, *kept;  ///< all replaced; as a name of an output
};

constexpr _textCase textCases[] = {
    {"folder_and_node", "$HIP/$OS.exr", "'/shots/a.exr'", "'/shots/a.exr'"},
    {"braces", "${HIPNAME}_x.${F4}.exr", "'tt010_x.0005.exr'", "'tt010_x.${F4}.exr'"},
    {"padded_frame", "$F/$F4.exr", "'5/0005.exr'", "'$F/$F4.exr'"},
    {"tokens_of_outputs", "$AOV.$SF.exr", "unsetVariable: AOV", "'$AOV.$SF.exr'"},
    {"kept_by_its_beginning", "x$WEDGENUM", "unsetVariable: WEDGENUM", "'x$WEDGENUM'"},
    {"other_tokens", "a.<UDIM>.%(UDIM)d.exr", "'a.<UDIM>.%(UDIM)d.exr'", "'a.<UDIM>.%(UDIM)d.exr'"},
    {"expression", "v`padzero(3, ch(\"version\"))`.`chs(\"kind\")`", "'v012.fast'", "'v012.fast'"},
    {"text_of_a_parameter", "`chs(\"file\")`", "'/shots/b.0005.geo'", "'/shots/b.$F4.geo'"},
    {"two_expressions", "`1+1``2*3`", "'26'", "'26'"},
    {"last_back_quote_missing", "a`opname(\".\")", "'aa'", "'aa'"},
    {"escaped", "\\$F\\`x", "'$F`x'", "'$F`x'"},
    {"other_backslashes", "C:\\a\\b", "'C:\\a\\b'", "'C:\\a\\b'"},
    {"no_variable", "5$ $1 $", "'5$ $1 $'", "'5$ $1 $'"},
    {"without_extension", "${HIPFILE:r}|$HIPFILE:h|$HIPFILE:t|$HIPFILE:e", "'/shots/tt010|/shots|tt010.hip|hip'",
     "'/shots/tt010|/shots|tt010.hip|hip'"},
    {"unknown_part", "$HOME/a", "unsetVariable: HOME", "unsetVariable: HOME"},
    {"unknown_expression", "a`npoints(0)`", "geometry: npoints", "geometry: npoints"},
    {"unclosed_brace", "${HIP", "syntax: ${HIP", "syntax: ${HIP"},
};

class Texts : public testing::TestWithParam<_textCase> {};

TEST_P(Texts, AreExpanded) {
    const vxTest::_smallScene small(
        {nodeText("obj", "obj", ""),
         nodeText("obj/a", "geo", "version=12|kind=\"fast\"|file=[file 0]", {{"file", "chs(\"../b/file\")"}}),
         nodeText("obj/b", "geo", "file=$HIP/$OS.$F4.geo")});
    const vxN::_node node = small.scene.find("/obj/a");
    _options options = small.options();
    EXPECT_EQ(shown(asValue(_evaluator(small.scene, options).expand(node, GetParam().text))), GetParam().plain);
    options.keptVariables = outputVariables();
    EXPECT_EQ(shown(asValue(_evaluator(small.scene, options).expand(node, GetParam().text))), GetParam().kept);
}

INSTANTIATE_TEST_SUITE_P(Table, Texts, testing::ValuesIn(textCases), vxTest::rowName);

TEST(Evaluator, KnowsThePlaceThatItIsTold) {
    const vxTest::_smallScene small({nodeText("obj", "obj", "")});
    const auto folder = [&](const _options& options) {
        return shown(asValue(_evaluator(small.scene, options).expand(small.scene.find("/obj"), "$HIP/$HIPNAME")));
    };
    EXPECT_EQ(folder({}), "scenePlace: HIP");
    _options beside;
    beside.sceneFile = "a.b.hipnc";
    EXPECT_EQ(folder(beside), "'./a.b'");
    EXPECT_EQ(folder(small.options()), "'/shots/tt010'");
    _options stored;
    stored.storedPlace = true;
    EXPECT_EQ(folder(stored), "'/old/before'");
}

TEST(Evaluator, EndsWhereChannelsReferToThemselves) {
    const vxTest::_smallScene small(
        {nodeText("obj", "obj", ""),
         nodeText("obj/a", "geo", "x=[x 0]|y=[y 0]|z=[z 0]|p=`chs(\"q\")`|q=`chs(\"p\")`|w=[w 0]",
                  {{"x", "ch(\"y\")"}, {"y", "ch(\"x\") || 1"}, {"z", "ch(\"z\") + 1"}, {"w", "ch(\"z\") * 0"}})});
    const vxN::_node node = small.scene.find("/obj/a");
    _evaluator evaluator(small.scene, small.options());
    EXPECT_EQ(shown(evaluator.channelValue(node, "z")), "cycle: z");
    EXPECT_EQ(shown(evaluator.channelValue(node, "w")), "cycle: z");
    EXPECT_EQ(shown(asValue(evaluator.text(node, "p"))), "cycle: p");
    // Known from both ends, whichever is asked first.
    EXPECT_EQ(shown(evaluator.channelValue(node, "x")), "1");
    EXPECT_EQ(shown(evaluator.channelValue(node, "y")), "1");
}

TEST(Evaluator, BoundsChainsAndFans) {
    std::vector<std::pair<std::string, std::string>> channels;
    std::string parameters = "end=1";
    for (int i = 0; i < 2000; ++i) {
        const std::string next = i < 1999 ? "c" + std::to_string(i + 1) : "end";
        parameters += "|c" + std::to_string(i) + "=[c" + std::to_string(i) + " 0]";
        channels.emplace_back("c" + std::to_string(i), "ch(\"" + next + "\") + ch(\"" + next + "\")");
    }
    const vxTest::_smallScene small({nodeText("obj", "obj", ""), nodeText("obj/a", "geo", parameters, channels)});
    const vxN::_node node = small.scene.find("/obj/a");
    _evaluator evaluator(small.scene, small.options());
    EXPECT_EQ(shown(evaluator.channelValue(node, "c0")).substr(0, 8), "tooDeep:");
    EXPECT_EQ(shown(evaluator.channelValue(node, "c1990")), "1024") << "each channel is computed once";
}

struct _sequenceCase {
    const char *what, *text, *name;
    bool changes = false;
};

constexpr _sequenceCase sequenceCases[] = {
    {"variable", "a.$F3.exr", "'a.$F3.exr'"}, {"padded_by_an_expression", "a.`padzero(4, $F)`.exr", "'a.$F4.exr'"},
    {"plain_number", "a`$F`", "'a$F'"},       {"of_another_channel", "a.`padzero(5, ch(\"frame\"))`", "'a.$F5'"},
    {"without_a_frame", "a`$FEND`", "'a48'"}, {"frame_that_is_moved", "a`$F + 100`", "'a105'", true},
};

class Sequences : public testing::TestWithParam<_sequenceCase> {};

TEST_P(Sequences, NameTheFrame) {
    const vxTest::_smallScene small(
        {nodeText("obj", "obj", ""), nodeText("obj/a", "geo",
                                              std::string("frame=[frame 0]|file=\"") +
                                                  [] {
                                                      std::string text = GetParam().text;
                                                      for (std::size_t at = 0;
                                                           (at = text.find('"', at)) != std::string::npos; at += 2)
                                                          text.insert(at, "\\");
                                                      for (char& c : text) c = c == ' ' ? '\n' : c;
                                                      return text;
                                                  }() +
                                                  '"',
                                              {{"frame", "rint($T * $FPS + 1)"}})});
    _options options = small.options();
    options.keptVariables = outputVariables();
    _evaluator evaluator(small.scene, options);
    bool changes = false;
    EXPECT_EQ(shown(asValue(sequenceText(evaluator, small.scene.find("/obj/a"), "file", changes))), GetParam().name);
    EXPECT_EQ(changes, GetParam().changes);
    EXPECT_EQ(evaluator.frame(), 5);
}

INSTANTIATE_TEST_SUITE_P(Table, Sequences, testing::ValuesIn(sequenceCases), vxTest::rowName);

}  // namespace

}  // namespace vxV
