#include "catalogues/usdRsList.h"

#include <gtest/gtest.h>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;

/// Camera, switch and file of the settings; "@" stands for the common begin of the archive parameters.
TEST(USDSettings, KeepTheirCameraAndTheirArchive) {
    for (const auto& [path, lines, stored] :
         {std::tuple{"obj/stage/rendersettings", "camera=\"/cam\"|@enable=\"on\"|@FILENAME=/x/$OS.$F4.rs",
                     "/stage/rendersettings /cam on /x/$OS.%4d.rs"},
          {"img/rendersettings", "camera=[ camera\t/cam2 ]|@enable_control=on set|@fileName_control=/y set",
           "/img/rendersettings /cam2 off "},
          {"obj/rendersettings", "camera=`chs(\"../cam\")`|cameras=/x", "/obj/rendersettings  off "}}) {
        vxTest::scanned(vxTest::driver(QByteArray(lines).replace("@", "xn__redshiftglobalRS_archive_"), path));
        const _USD_RendersettingNode& node = USD_RSList.entries().last();
        EXPECT_EQ(plain(node.lopName) + ' ' + plain(node.cameraName) + (node.archiveEnabled ? " on " : " off ") +
                      plain(node.imageName),
                  stored);
    }
}

TEST(USDSettings, WriteTheirArchiveIntoTheHoudiniJobsOfTheirFirstDriver) {
    const auto loader =
        vxTest::scanned(vxTest::driver("vm_picture=/i/b.exr", "out/b") +
                        vxTest::driver("vm_picture=/i/a.exr|soho_outputmode=on|soho_diskfile=/i/a.ifd"));
    for (const char16_t* driver : {u"/out/a", u"/out/b"})
        USD_RSList.addFromROP(QStringLiteral("/STAGE/rendersettings1"), QString::fromUtf16(driver));
    const QByteArray lines = "xn__redshiftglobalRS_archive_fileName=/x/$OS/a_$OS.$F4.rs";
    loader->scan(vxTest::driver(lines, "stage/rendersettings1").chopped(2));  // without its brace it changes nothing
    EXPECT_EQ(vxTest::outputOf(loader->job(1)), "/i/|a|.ifd");
    EXPECT_EQ(loader->scan(vxTest::driver(lines, "stage/rendersettings1")), resultSuccess);
    const std::string outputs[] = {"/i/|b|.exr", "/x/rendersettings1/|a_rendersettings1.|.rs", "/i/|a|.exr"};
    for (int i = 0; i < 3; ++i) EXPECT_EQ(vxTest::outputOf(loader->job(i)), outputs[i]);
    EXPECT_EQ(USD_RSList.entries().size(), 1);
    EXPECT_EQ(USD_RSList.findIndexByROP(QStringLiteral("/out/b")), 0);
    loader->array().count = loader->array().allocated + 1;
    EXPECT_EQ(loader->scan(vxTest::driver({}, "stage/rendersettings1")), resultNoMoreJobs);
}

}  // namespace

}  // namespace vxP
