// Cameras and LOP nodes: lists that sections and drivers fill in either order.
#include <gtest/gtest.h>

#include "catalogues/camList.h"
#include "catalogues/lopList.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;
using vxTest::plain;
using vxTest::wide;

/// Every camera: name, size, mark, drivers.
std::string cameras() {
    QString text;
    for (const _camNode& camera : camList.entries())
        text += camera.camName.toQString() + QStringLiteral(" %1x%2 ").arg(camera.resX).arg(camera.resY) +
                wide(camera.isStereo ? "stereo " : "") + camera.renderNodes.join(u' ') + u'|';
    return plain(text);
}

/// Every LOP node: path, image, renderer, mark, drivers.
std::string lops() {
    QString text;
    for (const _LOPNode& lop : LOPList.entries())
        text += lop.lopName + u' ' + lop.imageName + u' ' + lop.renderer + wide(lop.imageUsesTake ? " take " : " ") +
                lop.renderNodes.join(u' ') + u'|';
    return plain(text);
}

struct _listCase {
    const char* what;
    QByteArray scene;
    std::string cameras, lops{};
};

const QByteArray sections = driver("res=1920\t1080", "obj/stereocam") + driver("picture=/x", "stage/hdprman1");
const QByteArray drivers = driver("camera=/obj/stereocam|loppath=/STAGE/hdprman1", "out/b") +
                           driver("camera=/obj/stereocam|loppath=/stage/hdprman1", "out/a");
const QByteArray longName = "cam" + QByteArray(142, 'c');  // fills the name with its folder

const _listCase cases[] = {
    {"out_goes_first", driver("res=1\t2", "0707obj/a/out/cam1"), "/out/cam1 1x2 |"},
    {"size_in_quotes", driver("RES=\"640\"\t \"480\"", "obj/cam1"), "/obj/cam1 640x480 |"},
    {"one_number", driver("res=1920", "obj/cam1"), "/obj/cam1 1920x1920 |"},
    {"three_numbers", driver("res=1\t2\t3", "obj/cam1"), "/obj/cam1 1x0 |"},
    {"transform_of_a_rig", driver("res=1\t2", "obj/cam1/xform1"), ""},
    {"helper_in_capitals", driver("", "obj/cam_File"), "/obj/cam_File 0x0 |"},
    {"not_closed", "obj/cam1.parm {\nres\t( 1\t2\t)\n", ""},
    {"two_that_are_cut_alike", driver("", "obj/" + longName + "1") + driver("", "obj/" + longName + "2"),
     "/obj/" + longName.toStdString() + " 0x0 |"},
    {"image", driver("picture=\"/i/a.$F4.exr\"", "obj/img/a/stage/hdprman"), "", "/stage/hdprman /i/a.%4d.exr prman |"},
    {"image_by_take", driver("PICTURE=/$ACTIVETAKE", "img/hdprman"), "", "/img/hdprman /<Channel> prman take |"},
    {"last_usable_image", driver("picture=/x|picture=/y|picture=chs(", "obj/stage/out/hdprman"), "",
     "/out/hdprman /y prman |"},
    {"no_image", driver("#picture=/x|picture2=/y", "stage/karma/hdprman"), "", "/stage/karma/hdprman  karma |"},
    {"sections_first", sections + drivers, "/obj/stereocam 1920x1080 stereo /out/b /out/a|",
     "/stage/hdprman1 /x prman /out/b /out/a|"},
    {"drivers_first", drivers + sections, "/obj/stereocam 1920x1080 stereo /out/b /out/a|",
     "/stage/hdprman1 /x prman /out/b /out/a|"},
    {"last_section_counts", sections + driver("", "obj/stereocam") + drivers + driver("", "stage/hdprman1"),
     "/obj/stereocam 0x0 stereo /out/b /out/a|", "/stage/hdprman1  prman /out/b /out/a|"},
    {"escaped_expression", driver(R"(loppath="`chsop(\"/stage/hdprman\")`"|loppath=`chsop(/hdprman)"), "",
     "stage/hdprman   /out/a|`chsop(/hdprman   /out/a|"},
};

class NodeLists : public testing::TestWithParam<_listCase> {};

TEST_P(NodeLists, HoldWhatSectionsAndDriversTell) {
    vxTest::freshScanState();
    vxTest::_loader().scan(GetParam().scene);
    EXPECT_EQ(cameras(), GetParam().cameras);
    EXPECT_EQ(lops(), GetParam().lops);
}

INSTANTIATE_TEST_SUITE_P(Table, NodeLists, testing::ValuesIn(cases), vxTest::rowName);

TEST(LopNode, KnowsItsRendererByTheFirstName) {
    for (const auto& [text, suffix] : {std::pair{"arnold karma", "_karma"},
                                       {"vray hdprman", "_prman"},
                                       {"redshift VRAY", "_vray"},
                                       {"HdArnold redshift", "_redshift"}}) {
        _LOPNode node{QStringLiteral("/stage/a"), {}, {}, false, {}};
        node.setRenderer(wide(text));
        node.setRenderer(wide("prman"));  // not as a renderer calls itself
        EXPECT_EQ(plain(node.rendererName_render()), std::string("usd") + suffix);
        EXPECT_EQ(plain(node.rendererName_create()), std::string("createUSD") + suffix);
    }
}

TEST(NodeList, FindsPathsInAnyCase) {
    // Letters that change their length or their alphabet with their case.
    QStringList paths{QString()};
    for (const char* letter : {"a", "A", "k", "\u212A", "s", "\u00DF", "\u1E9E", "\u0130", "\U00010400", "\U00010428"})
        for (const char* behind : {"", "b", "\u017F"}) paths.append(wide(letter) + wide(behind));
    for (const QString& path : paths) {
        LOPList = _LOPList();
        LOPList.findLOPIndex(path, true);
        for (const QString& other : paths)
            EXPECT_EQ(LOPList.findLOPIndex(other, false), path.compare(other, Qt::CaseInsensitive) == 0 ? 0 : -1)
                << plain(path) << " and " << plain(other);
    }
}

}  // namespace

}  // namespace vxP
