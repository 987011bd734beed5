#include "catalogues/camList.h"

#include <gtest/gtest.h>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::param;
using vxTest::plainOf;
using vxTest::wide;

class CamList : public testing::Test {
 protected:
    void SetUp() override { vxTest::freshScanState(); }
};

using _name = _vxString8_allSize<150>;

void readCamera(const char* header, const QByteArray& text) {
    QTextStream stream(text);
    QString line = wide(header);
    EXPECT_EQ(loadCamNode(nullptr, stream, line), resultSuccess);
}

struct _sectionCase {
    const char *what, *header;
    QByteArray text;
    const char* camera;  ///< null: none
    int width = 0, height = 0;
    bool stereo = false;
};

const QByteArray hd = param("res", "1920\t1080") + "}\n";

const _sectionCase sectionCases[] = {
    {"sound", "0707obj/cam1.parm {", hd, "/obj/cam1", 1920, 1080},
    {"out_goes_first", "obj/a/out/cam1.parm {", hd, "/out/cam1", 1920, 1080},
    {"no_end_of_path", "obj/cam1 {", hd, "/", 1920, 1080},
    {"latin_only", "obj/c\xc3\xa4m\xe2\x82\xac.parm {", hd, "/obj/c\xc3\xa4m?", 1920, 1080},
    {"stereo", "obj/stereocamL.parm {", hd, "/obj/stereocamL", 1920, 1080, true},
    {"quoted_in_capitals", "obj/cam1.parm {", param("RES", "\"640\"\t \"480\"") + "}", "/obj/cam1", 640, 480},
    {"one_number", "obj/cam1.parm {", param("res", "1920") + "}", "/obj/cam1", 1920, 1920},
    {"three_numbers", "obj/cam1.parm {", param("res", "1\t2\t3") + "}", "/obj/cam1", 1, 0},
    {"last_one_counts", "obj/cam1.parm {", param("res", "1\t2") + hd, "/obj/cam1", 1920, 1080},
    {"cut_off", "obj/cam1.parm {", param("res", "1\t2"), nullptr},
    {"transform", "obj/cam1/xform1.parm {", hd, nullptr},
    {"origin", "obj/camOrigin.parm {", hd, nullptr},
    {"file", "obj/profile_cam.parm {", hd, nullptr},
    {"constraints", "obj/cam1/constraints.parm {", hd, nullptr},
    {"helper_in_capitals", "obj/cam_File.parm {", hd, "/obj/cam_File", 1920, 1080},
};

class CameraSection : public testing::TestWithParam<_sectionCase> {};

TEST_P(CameraSection, BecomesAnEntry) {
    vxTest::freshScanState();
    readCamera(GetParam().header, GetParam().text);
    ASSERT_EQ(camList.entries().size(), GetParam().camera != nullptr ? 1 : 0);
    if (GetParam().camera == nullptr) return;
    const _camNode& camera = camList.entries().first();
    EXPECT_EQ(plainOf(camera.camName), GetParam().camera);
    EXPECT_EQ(camera.resX, GetParam().width);
    EXPECT_EQ(camera.resY, GetParam().height);
    EXPECT_EQ(camera.isStereo, GetParam().stereo);
    EXPECT_TRUE(camera.renderNodes.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Table, CameraSection, testing::ValuesIn(sectionCases), vxTest::rowName);

TEST_F(CamList, JoinsSectionAndDriversInEitherOrder) {
    const QStringList drivers{QStringLiteral("/out/b"), QStringLiteral("/out/a"), QStringLiteral("/out/b")};
    for (const bool driversFirst : {true, false}) {
        vxTest::freshScanState();
        if (!driversFirst) readCamera("obj/stereocam.parm {", hd);
        for (const QString& driver : drivers) camList.addCamFromOutNode(_name("/obj/stereocam"), driver);
        if (driversFirst) readCamera("obj/stereocam.parm {", hd);
        ASSERT_EQ(camList.entries().size(), 1);
        EXPECT_EQ(camList.entries().first().renderNodes, drivers);
        EXPECT_EQ(camList.entries().first().resX, 1920);
        EXPECT_TRUE(camList.entries().first().isStereo);
    }
    readCamera("obj/stereocam.parm {", param("res", "640\t480") + "}\n");
    EXPECT_EQ(camList.entries().first().resY, 480);
    EXPECT_EQ(camList.entries().first().renderNodes, drivers);
}

TEST_F(CamList, FindsTheFirstCameraOfADriver) {
    const QString driver = QStringLiteral("/out/a");
    EXPECT_EQ(camList.findCamIndexByRenderNode(driver), -1);
    EXPECT_TRUE(camList.entries().isEmpty());
    for (const char* camera : {"/obj/cam1", "/obj/cam2", "/obj/Cam2"})
        camList.addCamFromOutNode(_name(camera), QStringLiteral("/out/other"));
    camList.addCamFromOutNode(_name("/obj/Cam2"), driver);
    camList.addCamFromOutNode(_name("/obj/cam2"), driver);
    EXPECT_EQ(camList.findCamIndexByRenderNode(driver), 1);
    EXPECT_EQ(camList.findCamIndexByRenderNode(QStringLiteral("/out/A")), -1);
    EXPECT_EQ(camList.findCamIndex(_name("/obj/cam4")), 3);
    EXPECT_EQ(camList.findCamIndex(_name("/obj/cam4")), 4) << "a new entry has no name yet";
}

TEST_F(CamList, UnwrapsAnEscapedNodeExpressionOfADriver) {
    const std::pair<const char*, const char*> cases[] = {{"`chsop(\\\"/obj/cam1)", "/obj/cam1"},
                                                         {"`chsop(\\", ""},
                                                         {"`chsop(\"/obj/cam1\")`", "`chsop(\"/obj/cam1\")`"},
                                                         {"/obj/xform", "/obj/xform"}};
    for (const auto& [name, camera] : cases) {
        camList.addCamFromOutNode(_name(name), QStringLiteral("/out/a"));
        EXPECT_EQ(plainOf(camList.entries().last().camName), camera) << name;
    }
}

TEST_F(CamList, ComparesPathsCutAt150Characters) {
    const QByteArray path = "obj/" + QByteArray(145, 'c');
    readCamera((path + "1.parm {").constData(), hd);
    readCamera((path + "2.parm {").constData(), param("res", "1\t2") + "}\n");
    ASSERT_EQ(camList.entries().size(), 1);
    EXPECT_EQ(plainOf(camList.entries().first().camName), "/" + path.toStdString());
    EXPECT_EQ(camList.entries().first().resX, 1);
}

}  // namespace

}  // namespace vxP
