#include "drivers/outNodeRules.h"

#include <gtest/gtest.h>

#include "catalogues/camList.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;
using vxTest::plain;
using vxTest::plainOf;
using vxTest::scanned;
using vxTest::wide;

/// A scene with the range 11-22, and a driver with these lines.
struct _rangeCase {
    const char *what, *lines;
    double start, end;
    int step;
};

constexpr _rangeCase rangeCases[] = {
    {"switch_behind", "f=5\t10\t2|trange=\"on\"", 11, 22, 1},
    {"switch_off", "trange=\"off\"|f=5\t10\t2", 11, 22, 1},
    {"switch_normal", "TRANGE2=\"normal\"|F=5\t10\t2", 5, 10, 2},
    {"switch_stays", "trange=\"on\"|trange=\"off\"|f=1001\t1100\t2", 1001, 1100, 2},
    {"two_fields", "trange=\"on\"|f= 5\t-10 ", 5, -10, 1},
    {"four_fields", "trange=\"on\"|f=5\t10\t2\t3", 5, 10, 0},
    {"no_numbers", "trange=\"on\"|f=0x5\t1.5\tc", 0, 0, 0},
    {"wide_step", "trange=\"on\"|f=5\t10\t65538", 5, 10, 2},
    {"channels", "trange=\"on\"|f=[ f1\t5 ] \t[ f2\t240 ] \t2", 5, 240, 2},
    {"channel_of_start", "trange=\"on\"|f=[ f1\t5 ] \t100\t2", 5, 100, 0},
};

class FrameRange : public testing::TestWithParam<_rangeCase> {};

TEST_P(FrameRange, IsTheDriversOrTheScenes) {
    const QByteArray before = driver("vm_picture=/i|trange=\"on\"|f=7\t8\t9");  // leaves nothing behind
    const auto loader = scanned("frange 11 22\n" + before + driver(GetParam().lines + QByteArray("|vm_picture=/i")));
    ASSERT_EQ(loader->count(), 2);
    const auto& settings = loader->job(1).sceneSettings;
    EXPECT_EQ(settings.seqStart, GetParam().start);
    EXPECT_EQ(settings.seqEnd, GetParam().end);
    EXPECT_EQ(settings.seqStep, GetParam().step);
}

INSTANTIATE_TEST_SUITE_P(Table, FrameRange, testing::ValuesIn(rangeCases), vxTest::rowName);

TEST(DriverCamera, IsCataloguedOrHoldsBackTheRenderJob) {
    const std::tuple<QByteArray, const char*, int> cases[] = {
        {"camera=\" /obj/cam1 \"", "/obj/cam1", 2},
        {"RS_RENDERCAMERA=/obj/xform", "/obj/xform", 2},
        {"camera=[ camera\t\"/obj/cam1\" ]", "/obj/cam1", 2},
        {"camera=[ Camera\t/obj/c ]", "[ Camera\t/obj/c ]", 2},
        {"camera=`chs(\"../c\"", "", 2},
        {"camera=\"Proxy_Export_cam\"|camera=chs(", "", 1},
        {"camera=proxy_export|camera=/obj/proxy_export", "/obj/proxy_export", 2},
        {"camera=/obj/first|camera=/obj/second", "/obj/first", 2}};
    for (const auto& [lines, camera, jobs] : cases) {
        EXPECT_EQ(scanned(driver("vm_picture=/i|soho_outputmode=on|soho_diskfile=/x|" + lines))->count(), jobs);
        const qint32 index = camList.findCamIndexByRenderNode(QStringLiteral("/out/a"));
        EXPECT_EQ(index < 0 ? "" : plainOf(camList.entries().at(index).camName), camera) << lines.data();
    }
}

TEST(DriverTake, IsKeptByNodePath) {
    const std::pair<const char*, const char*> cases[] = {
        {"\" wide \"", "wide"}, {"\"_current_\"", ""}, {"a_current_b_current_", "ab"}, {"_CURRENT_", "_CURRENT_"}};
    for (const auto& [value, take] : cases) {
        scanned(driver(QByteArray("vm_picture=/i|take=") + value));
        EXPECT_EQ(plain(nodeActiveTakes.value(_vxString<150>(u"/out/a"), wide("none"))), take);
    }
}

TEST(DriverResolution, IsWidthAndHeight) {
    const std::tuple<QByteArray, int, int, bool> cases[] = {
        {"res_override=1920\t1080", 1920, 1080, false},
        {"RS_overrideRes=640|override_camerares=\"on\"", 640, 640, true},
        {"res_override=65537\t2\t3|RS_overrideCameraRes=on", 1, 0, true},
        {"RS_overrideCameraRes=on|override_camerares=off", 0, 0, false}};
    for (const auto& [lines, width, height, overrides] : cases) {
        const auto loader = scanned(driver("vm_picture=/i|" + lines));
        EXPECT_EQ(loader->job(0).imageWidth, width) << lines.data();
        EXPECT_EQ(loader->job(0).imageHeight, height) << lines.data();
        EXPECT_EQ(overrideCameraRes, overrides) << lines.data();
    }
}

TEST(DriverImage, IsPutTogetherFromItsLines) {
    const QByteArray lop = driver("picture=/l/b.exr", "stage/hdprman1");
    const std::pair<QByteArray, const char*> cases[] = {
        {driver("RS_outputFileNamePrefix=\"/r/b\"|RS_outputFileFormat=\".{exr}\""), "/r/|b|.exr"},
        {driver("RS_outputFileNamePrefix=/r/b.exr|RS_outputFileFormat=.EXR"), "/r/|b|.exr"},
        {driver("vm_picture=/i/a.exr|picture=/i/b.exr|picture=testfile.exr"), "/i/|b|.exr"},
        {driver("vm_picture=/i/a.exr|RS_outputFileNamePrefix=/r"), "/r/i/|a|.exr"},
        {lop + driver("vm_picture=/i/a.exr|loppath=\"/stage/hdprman1\""), "/l/|b|.exr"},
        {lop + driver("vm_picture=/i/a.exr|loppath=/stage/HDPRMAN1"), "/i/|a|.exr"},
    };
    for (const auto& [scene, image] : cases) {
        const auto loader = scanned(scene);
        ASSERT_EQ(loader->count(), 1);
        EXPECT_EQ(vxTest::outputOf(loader->job(0)), image);
    }
}

TEST(AlembicReader, IsNoDriver) {
    EXPECT_EQ(scanned(driver("filename=/i|objectPathX="))->count(), 0);
    EXPECT_EQ(scanned(driver("filename=/i|MISSING_TEXTURE_COLOR="))->count(), 0);
    EXPECT_FALSE(emptyNodesfound);
    EXPECT_EQ(scanned(driver("objectPath=|filename=/i"))->count(), 1);
}

}  // namespace

}  // namespace vxP
