#include "catalogues/lopList.h"

#include <gtest/gtest.h>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::param;
using vxTest::plain;
using vxTest::wide;

class LopList : public testing::Test {
 protected:
    void SetUp() override { vxTest::freshScanState(); }
};

void readLop(const char* header, const QByteArray& text) {
    QTextStream stream(text);
    QString line = wide(header);
    EXPECT_EQ(loadLOPNode(nullptr, stream, line), resultSuccess);
}

struct _sectionCase {
    const char *what, *header;
    QByteArray text;
    const char* path;  ///< null: none
    const char *image = "", *renderer = "";
    bool take = false;
};

const QByteArray picture = param("picture", "\"/i/a.$F4.exr\"") + "}\n";

const _sectionCase sectionCases[] = {
    {"sound", "0707stage/hdprman1.parm {", picture, "/stage/hdprman1", "/i/a.%4d.exr", "prman"},
    {"out_goes_first", "stage/a/out/b.parm {", picture, "/out/b", "/i/a.%4d.exr"},
    {"stage_goes_before_img", "img/a/stage/b.parm {", picture, "/stage/b", "/i/a.%4d.exr"},
    {"img_goes_before_obj", "obj/a/img/b.parm {", picture, "/img/b", "/i/a.%4d.exr"},
    {"no_end_of_path", "stage/karma {", picture, "/", "/i/a.%4d.exr"},
    {"take_in_capitals", "stage/b.parm {", param("PICTURE", "/$ACTIVETAKE") + "}", "/stage/b", "/<Channel>", "", true},
    {"last_one_counts", "stage/b.parm {", param("picture", "/x") + picture, "/stage/b", "/i/a.%4d.exr"},
    {"refused_name", "stage/b.parm {", param("picture", "/x") + param("picture", "chs(") + "}", "/stage/b", "/x"},
    {"no_picture", "stage/b.parm {", "#" + param("picture", "/x") + param("picture2", "/y") + "}", "/stage/b"},
    {"cut_off", "stage/b.parm {", param("picture", "/x"), nullptr},
};

class LopSection : public testing::TestWithParam<_sectionCase> {};

TEST_P(LopSection, BecomesAnEntry) {
    vxTest::freshScanState();
    readLop(GetParam().header, GetParam().text);
    ASSERT_EQ(LOPList.entries().size(), GetParam().path != nullptr ? 1 : 0);
    if (GetParam().path == nullptr) return;
    const _LOPNode& node = LOPList.entries().first();
    EXPECT_EQ(plain(node.lopName), GetParam().path);
    EXPECT_EQ(plain(node.imageName), GetParam().image);
    EXPECT_EQ(plain(node.renderer), GetParam().renderer);
    EXPECT_EQ(node.imageUsesTake, GetParam().take);
    EXPECT_TRUE(node.renderNodes.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Table, LopSection, testing::ValuesIn(sectionCases), vxTest::rowName);

TEST(LopNode, KnowsItsRendererByName) {
    struct _case {
        const char *path, *text;
        std::string suffix;
        const char* before = "";
    };
    for (const _case& c : {_case{"/stage/settings1", "", ""},
                           {"/stage/Karma_settings", "", "_karma"},
                           {"/stage/karma", "HdPrmanLoader", "_prman"},
                           {"/stage/karma", "prman", "_vray", "vray"},
                           {"/stage/a", "arnold karma", "_karma"},
                           {"/stage/a", "vray hdprman", "_prman"},
                           {"/stage/a", "redshift VRAY", "_vray"},
                           {"/stage/a", "arnold redshift", "_redshift"},
                           {"/stage/a", "HdArnold", "_arnold"}}) {
        _LOPNode node;
        node.lopName = wide(c.path);
        node.renderer = wide(c.before);
        node.setRenderer(wide(c.text));
        EXPECT_EQ(plain(node.rendererName_render()), "usd" + c.suffix) << c.text;
        EXPECT_EQ(plain(node.rendererName_create()), "createUSD" + c.suffix) << c.text;
    }
}

TEST_F(LopList, JoinsSectionAndDriversInEitherOrder) {
    const QStringList drivers{QStringLiteral("/out/b"), QStringLiteral("/out/a"), QStringLiteral("/out/b")};
    for (const bool driversFirst : {true, false}) {
        vxTest::freshScanState();
        if (!driversFirst) readLop("stage/KARMA.parm {", picture);
        for (const QString& driver : drivers)
            EXPECT_EQ(LOPList.addLOPFromOutNode(QStringLiteral("/stage/karma"), driver), 0);
        if (driversFirst) readLop("stage/KARMA.parm {", picture);
        ASSERT_EQ(LOPList.entries().size(), 1);
        EXPECT_EQ(LOPList.entries().first().renderNodes, drivers);
        EXPECT_EQ(plain(LOPList.entries().first().lopName), "/stage/KARMA");
        EXPECT_EQ(plain(LOPList.entries().first().imageName), "/i/a.%4d.exr");
        EXPECT_EQ(plain(LOPList.entries().first().renderer), "karma");
    }
    LOPList[0].setRenderer(QStringLiteral("vray"));
    readLop("Stage/Karma.parm {", "}\n");  // the latest section has the last word
    EXPECT_EQ(plain(LOPList[0].lopName), "/Stage/Karma");
    EXPECT_EQ(plain(LOPList[0].imageName), "");
    EXPECT_EQ(plain(LOPList[0].renderer), "karma");
    EXPECT_EQ(LOPList[0].renderNodes, drivers);
}

TEST_F(LopList, FindsPathsInAnyCaseAndDriversExactly) {
    EXPECT_EQ(LOPList.findLOPIndex(QStringLiteral("/stage/a"), false), -1);
    EXPECT_TRUE(LOPList.entries().isEmpty());
    EXPECT_EQ(LOPList.findLOPIndex(QStringLiteral("/stage/a"), true), 0);
    EXPECT_EQ(LOPList.findLOPIndex(QStringLiteral("/stage/b"), true), 1);
    EXPECT_EQ(LOPList.findLOPIndex(QStringLiteral("/STAGE/B"), false), 1);
    for (const char* path : {"/stage/c", "/stage/B", "/stage/a"})
        LOPList.addLOPFromOutNode(wide(path), QStringLiteral("/out/") + wide(path).right(1));
    LOPList.addLOPFromOutNode(QStringLiteral("/stage/a"), QStringLiteral("/out/B"));
    EXPECT_EQ(LOPList.findLOPIndexByRenderNode(QStringLiteral("/out/B")), 0);
    EXPECT_EQ(LOPList.findLOPIndexByRenderNode(QStringLiteral("/out/c")), 2);
    EXPECT_EQ(LOPList.findLOPIndexByRenderNode(QStringLiteral("/OUT/c")), -1);
    EXPECT_EQ(LOPList.addLOPFromOutNode(wide("`chsop(\\\"/stage/c)"), QString()), 2);
    EXPECT_EQ(LOPList.entries().size(), 3);
}

}  // namespace

}  // namespace vxP
