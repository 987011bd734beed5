#include "scene/scene.h"

#include <gtest/gtest.h>

#include "scan/scanBudget.h"
#include "tests/support/archiveText.h"
#include "tests/testText.h"

namespace vxN {

namespace {

using vxTest::openArchive;

std::string definition(const std::string& inputs, const std::string& more = "") {
    return "sopflags sopflags = \ncomment \"inputs\n{\n0 \\\"x\\\"\"\nposition 1 2\nflags =  lock off model off bypass "
           "on "
           "display off render on\ninputsNamed3\n{\n0 \twrong 1 1 \"input1\"\n}\ninputs\n{\n" +
           inputs + "}\nstat\n{\n  create 1\n  author me@here\n}\n" + more + "exprlanguage python\nend\n";
}

const std::string scene = openArchive({
    {".start", "fplayback -i on\ntcur 4.125\nfps 25\ntset 0 10\nfrange 1001.0000000000001 1100\nprompt '`x`'\n"},
    {".variables",
     "set -l WEDGE = ''\nset -g HIP = '/it''s\nhere'\r\nset -g HIP = '/show'\nunset -g HIP = 'x'\n"
     "set -g ACTIVETAKE = 'Main'\nset -g _HIP_SAVEVERSION = '20.0.547'\n"},
    {".takes", std::string("HoudiniTakeFile 1.0\ntake name Main kids 0\n\0\0\0\2e\n", 48)},
    {"obj.parm", "{\n}\n"},
    {"obj/b.init", "type = labs::filecache::2.0\nmatchesdef = 1\n"},
    {"obj/b.def", definition("0 \t\"\" 0 1\n1 \t(__dot1) 0 1\n")},
    {"obj/__dot1.networkdotinit", "{\n\t\"version\":1,\n\t\"input\":\"(__dot2) 0 1\"\n}\n"},
    {"obj/__dot2.networkdotinit", "{\n\t\"input\":\"a.b 0 1\"\n}\n"},
    {"obj/__loop.networkdotinit", "{\n\t\"input\":\"(__loop) 0 1\"\n}\n"},
    {"obj/a.b.init", "type = null\r\nmatchesdef = 0\r\n"},
    {"obj/a.b.parm", "{\ns\t[ 0\tlocks=0 ]\t(\t[ s\t5 ] \t)\n}\n"},
    {"obj/a.b.chn", "{ channel s { segment { length = 0 expr = $F } } }"},
    {"obj/a.b.multiparm", "5\nramp#pos ../b/ramp#pos\nramp#value ../b/ramp#value\n"},
    {"obj/b/in.def", definition("0 \t(1) 0 1\n1 \t(__loop) 0 1\n2 \tgone 0 1\n", "creator gallery::x\n")},
    {"obj/locked/deep/c.parm", "{\n}\n"},
    {"obj/../x.parm", "{\n}\n"},
    {"obj.order", "3\nb\nmissing\na.b\n"},
});

class Scene : public testing::Test {
 protected:
    void SetUp() override { vxP::beginBudget(); }

    _memorySource source{scene};
    _scene tree{source};
};

std::string pathsOf(const std::vector<_node>& nodes) {
    std::string paths;
    for (const _node& node : nodes) paths += node.path() + ' ';
    return paths;
}

TEST_F(Scene, IsATreeOfNodes) {
    EXPECT_EQ(tree.archiveEnd(), _archiveEnd::complete);
    EXPECT_EQ(pathsOf(tree.root().children()), "/obj ");
    EXPECT_EQ(pathsOf(tree.find("/obj").children()), "/obj/b /obj/a.b /obj/locked ");
    EXPECT_EQ(tree.nodeCount(), 8);
    EXPECT_EQ(tree.root().path(), "/");
    EXPECT_EQ(tree.find("/obj/a.b").type(), "null");
    EXPECT_TRUE(tree.find("/obj/b").matchesDefinition());
    EXPECT_FALSE(tree.find("/obj/a.b").matchesDefinition() || tree.find("/obj/locked/deep").isSaved());
    EXPECT_EQ(tree.find("/obj/locked/deep/c").type(), "");
    EXPECT_EQ(tree.find("/obj/b/in").find("../../a.b/."), tree.find("obj/a.b"));
    EXPECT_EQ(tree.find("/obj/b").find("/obj/"), tree.find("obj"));
    EXPECT_FALSE(tree.find("/obj/none") || tree.find("/..") || _node().find("/obj"));
    EXPECT_EQ(tree.find("/none").path() + tree.find("/none").parent().path(), "");
    EXPECT_TRUE(tree.find("/none").parameters()->all().empty());
}

TEST_F(Scene, GivesWhatANodeHolds) {
    const _node node = tree.find("/obj/a.b");
    const auto value = node.component("s");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->channel, "s");
    EXPECT_EQ(node.channel("s")->segments[0].expression, "$F");
    EXPECT_EQ(node.parameter("none"), nullptr);
    ASSERT_EQ(node.multiparmLinks().size(), 2U);
    EXPECT_EQ(node.multiparmLinks()[1].source, "../b/ramp#value");

    const auto own = tree.find("/obj/b/in").definition();
    EXPECT_EQ(own->isOn(_flag::bypass), true);
    EXPECT_EQ(own->isOn(_flag::display), false);
    EXPECT_EQ(own->isOn(_flag::debug), std::nullopt);
    EXPECT_EQ(own->creator + own->expressionLanguage, "gallery::xpython");
    ASSERT_EQ(own->inputs.size(), 3U);
    EXPECT_EQ(own->inputs[0].subnetInput, 1);
}

TEST_F(Scene, FollowsWires) {
    EXPECT_EQ(tree.find("/obj/b").inputNode(1).path(), "/obj/a.b");
    EXPECT_EQ(tree.find("/obj/b/in").inputNode(0).path(), "/obj/a.b");
    for (const quint32 index : {1U, 2U, 3U}) EXPECT_FALSE(tree.find("/obj/b/in").inputNode(index)) << index;
    EXPECT_FALSE(tree.find("/obj/b").inputNode(0));
}

TEST_F(Scene, TellsTimesAndVariables) {
    const _timeline& timeline = tree.timeline();
    EXPECT_EQ(timeline.fps, 25);
    EXPECT_EQ(timeline.currentTime, 4.125);
    EXPECT_EQ(timeline.globalRange->last, 10);
    EXPECT_EQ(timeline.frameRange->first, 1001.0000000000001);
    ASSERT_EQ(tree.variables().size(), 5U);
    EXPECT_EQ(tree.variables()[1].value, "/it''s\nhere");
    EXPECT_FALSE(tree.variables()[0].isGlobal);
    EXPECT_EQ(tree.variable("HIP"), "/show");
    EXPECT_EQ(tree.variable("HOME"), std::nullopt);
    EXPECT_EQ(tree.saveVersion(), "20.0.547");
    EXPECT_EQ(tree.activeTake(), 0);
}

TEST(SceneLimits, HoldForTheDepthOfNodes) {
    vxP::beginBudget();
    std::string path = "a";
    for (int i = 0; i < 300; ++i) path += "/a";
    const std::string deep = openArchive({{path + ".parm", "{\n}\n"}});
    const _memorySource source(deep);
    EXPECT_EQ(_scene(source).nodeCount(), 257);
}

struct _typeCase {
    const char* type;
    const char* parts;
};

constexpr _typeCase typeCases[] = {
    {"ifd", "|ifd|"},
    {"filecache::2.0", "|filecache|2.0"},
    {"labs::file", "labs|file|"},
    {"a::b::c::2.0", "a::b|c|2.0"},
    {"a::2b", "|a|2b"},
    {"", "||"},
};

TEST(NodeTypes, HaveNamespaceNameAndVersion) {
    for (const _typeCase& row : typeCases) {
        const _nodeType parts = splitNodeType(row.type);
        EXPECT_EQ(std::string(parts.space) + '|' + std::string(parts.name) + '|' + std::string(parts.version),
                  row.parts);
    }
}

}  // namespace

}  // namespace vxN
