// Cameras and LOP nodes: lists that sections and drivers fill in either order.
#include <gtest/gtest.h>

#include "catalogues/camList.h"
#include "catalogues/lopList.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::params;
using vxTest::plain;
using vxTest::plainOf;
using vxTest::wide;

using _name = _vxString8_allSize<150>;
const QStringList drivers{QStringLiteral("/out/b"), QStringLiteral("/out/a"), QStringLiteral("/out/b")};

template <auto load>
void read(const char* header, const QByteArray& text) {
    QTextStream stream(text);
    QString line = wide(header);
    EXPECT_EQ(load(nullptr, stream, line), resultSuccess);
}
constexpr auto readCamera = read<loadCamNode>, readLop = read<loadLOPNode>;

struct _cameraCase {
    const char *what, *header, *lines;
    const char* camera;  ///< null: none
    int width = 1920, height = 1080;
    bool stereo = false;
};

constexpr _cameraCase cameraCases[] = {
    {"sound", "0707obj/cam1.parm {", "res=1920\t1080", "/obj/cam1"},
    {"out_goes_first", "obj/a/out/cam1.parm {", "res=1920\t1080", "/out/cam1"},
    {"no_end_of_path", "obj/cam1 {", "res=1920\t1080", "/"},
    {"stereo", "obj/stereocamL.parm {", "res=1920\t1080", "/obj/stereocamL", 1920, 1080, true},
    {"quoted_in_capitals", "obj/cam1.parm {", "RES=\"640\"\t \"480\"", "/obj/cam1", 640, 480},
    {"one_number", "obj/cam1.parm {", "res=1920", "/obj/cam1", 1920, 1920},
    {"three_numbers", "obj/cam1.parm {", "res=1\t2\t3", "/obj/cam1", 1, 0},
    {"transform", "obj/cam1/xform1.parm {", "res=1920\t1080", nullptr},
    {"constraints", "obj/cam1/constraints.parm {", "res=1920\t1080", nullptr},
    {"helper_in_capitals", "obj/cam_File.parm {", "res=1920\t1080", "/obj/cam_File"},
};

class CameraSection : public testing::TestWithParam<_cameraCase> {};

TEST_P(CameraSection, BecomesAnEntry) {
    vxTest::freshScanState();
    readCamera(GetParam().header, params(GetParam().lines));
    EXPECT_TRUE(camList.entries().isEmpty()) << "without its closing brace";
    readCamera(GetParam().header, params(GetParam().lines) + "}\n");
    ASSERT_EQ(camList.entries().size(), GetParam().camera != nullptr ? 1 : 0);
    if (GetParam().camera == nullptr) return;
    const _camNode& camera = camList.entries().first();
    EXPECT_EQ(plainOf(camera.camName), GetParam().camera);
    EXPECT_EQ(camera.resX, GetParam().width);
    EXPECT_EQ(camera.resY, GetParam().height);
    EXPECT_EQ(camera.isStereo, GetParam().stereo);
}

INSTANTIATE_TEST_SUITE_P(Table, CameraSection, testing::ValuesIn(cameraCases), vxTest::rowName);

struct _lopCase {
    const char *what, *header, *lines, *path, *image, *renderer = "";
    bool take = false;
};

constexpr _lopCase lopCases[] = {
    {"sound", "0707stage/hdprman1.parm {", "picture=\"/i/a.$F4.exr\"", "/stage/hdprman1", "/i/a.%4d.exr", "prman"},
    {"out_goes_first", "stage/a/out/b.parm {", "picture=/x", "/out/b", "/x"},
    {"stage_goes_before_img", "img/a/stage/b.parm {", "picture=/x", "/stage/b", "/x"},
    {"no_end_of_path", "stage/karma {", "picture=/x", "/", "/x"},
    {"take_in_capitals", "stage/b.parm {", "PICTURE=/$ACTIVETAKE", "/stage/b", "/<Channel>", "", true},
    {"last_usable_one_counts", "stage/b.parm {", "picture=/x|picture=/y|picture=chs(", "/stage/b", "/y"},
    {"no_picture", "stage/b.parm {", "#picture=/x|picture2=/y", "/stage/b", ""},
};

class LopSection : public testing::TestWithParam<_lopCase> {};

TEST_P(LopSection, BecomesAnEntry) {
    vxTest::freshScanState();
    readLop(GetParam().header, params(GetParam().lines));
    EXPECT_TRUE(LOPList.entries().isEmpty()) << "without its closing brace";
    readLop(GetParam().header, params(GetParam().lines) + "}\n");
    ASSERT_EQ(LOPList.entries().size(), 1);
    EXPECT_EQ(plain(LOPList[0].lopName), GetParam().path);
    EXPECT_EQ(plain(LOPList[0].imageName), GetParam().image);
    EXPECT_EQ(plain(LOPList[0].renderer), GetParam().renderer);
    EXPECT_EQ(LOPList[0].imageUsesTake, GetParam().take);
}

INSTANTIATE_TEST_SUITE_P(Table, LopSection, testing::ValuesIn(lopCases), vxTest::rowName);

TEST(LopNode, KnowsItsRendererByName) {
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"/stage/settings1", "", ""},           {"/stage/Karma_settings", "", "_karma"},
        {"/stage/a", "arnold karma", "_karma"}, {"/stage/a", "vray hdprman", "_prman"},
        {"/stage/a", "redshift VRAY", "_vray"}, {"/stage/a", "arnold redshift", "_redshift"},
        {"/stage/a", "HdArnold", "_arnold"}};
    for (const auto& [path, text, suffix] : cases) {
        _LOPNode node{wide(path), {}, {}, false, {}};
        node.setRenderer(wide(text));
        node.setRenderer(wide("prman"));  // not as a renderer calls itself
        EXPECT_EQ(plain(node.rendererName_render()), "usd" + suffix) << text;
        EXPECT_EQ(plain(node.rendererName_create()), "createUSD" + suffix) << text;
    }
}

TEST(NodeLists, JoinSectionAndDriversInEitherOrder) {
    for (const bool driversFirst : {true, false}) {
        vxTest::freshScanState();
        const auto readSections = [] {
            readCamera("obj/stereocam.parm {", params("res=1920\t1080") + "}\n");
            readLop("stage/KARMA.parm {", params("picture=/x") + "}\n");
        };
        if (!driversFirst) readSections();
        for (const QString& driver : drivers) {
            camList.addCamFromOutNode(_name("/obj/stereocam"), driver);
            EXPECT_EQ(LOPList.addLOPFromOutNode(QStringLiteral("/stage/karma"), driver), 0);
        }
        if (driversFirst) readSections();
        ASSERT_EQ(camList.entries().size(), 1);
        EXPECT_EQ(camList.entries().first().renderNodes, drivers);
        EXPECT_EQ(camList.entries().first().resX, 1920);
        EXPECT_TRUE(camList.entries().first().isStereo);
        ASSERT_EQ(LOPList.entries().size(), 1);
        EXPECT_EQ(LOPList[0].renderNodes, drivers);
        EXPECT_EQ(plain(LOPList[0].lopName + LOPList[0].imageName + LOPList[0].renderer), "/stage/KARMA/xkarma");
    }
    LOPList[0].setRenderer(QStringLiteral("vray"));
    readLop("Stage/Karma.parm {", "}\n");  // the latest section has the last word
    EXPECT_EQ(plain(LOPList[0].lopName + LOPList[0].imageName + LOPList[0].renderer), "/Stage/Karmakarma");
    EXPECT_EQ(LOPList[0].renderNodes, drivers);
}

TEST(NodeLists, FindTheFirstNodeOfADriver) {
    vxTest::freshScanState();
    EXPECT_EQ(LOPList.findLOPIndex(QStringLiteral("/stage/cam1"), false), -1);
    for (const auto& [node, driver] :
         {std::pair{"cam1", "/out/a"}, {"cam2", "/out/a"}, {"Cam2", "/out/b"}, {"cam2", "/out/b"}}) {
        camList.addCamFromOutNode(_name(node), wide(driver));
        LOPList.addLOPFromOutNode(wide(node), wide(driver));
    }
    for (const auto& [driver, index] : {std::pair{"/out/b", 1}, {"/out/B", -1}}) {
        EXPECT_EQ(camList.findCamIndexByRenderNode(wide(driver)), index);
        EXPECT_EQ(LOPList.findLOPIndexByRenderNode(wide(driver)), index);
    }
    EXPECT_EQ(camList.entries().size(), 3);
    EXPECT_EQ(LOPList.entries().size(), 2) << "paths of LOP nodes are found in any case";
}

TEST(NodeLists, TakePathsFromDriversOutOfAnEscapedExpression) {
    vxTest::freshScanState();
    for (const auto& [path, camera] : {std::pair{"`chsop(\\\"/obj/cam1)", "/obj/cam1"},
                                       {"`chsop(\\", ""},
                                       {"`chsop(\"/obj/cam1\")`", "`chsop(\"/obj/cam1\")`"}}) {
        camList.addCamFromOutNode(_name(path), drivers[0]);
        LOPList.addLOPFromOutNode(wide(path), drivers[0]);
        EXPECT_EQ(plainOf(camList.entries().last().camName), camera);
        EXPECT_EQ(plain(LOPList.entries().last().lopName), camera);
    }
    const std::string path = "obj/" + std::string(145, 'c');  // cut at 150 characters with its slash
    for (const char* end : {"1.parm {", "2.parm {"}) readCamera((path + end).c_str(), "}\n");
    EXPECT_EQ(camList.entries().size(), 4);
    EXPECT_EQ(plainOf(camList.entries().last().camName), "/" + path);
}

}  // namespace

}  // namespace vxP
