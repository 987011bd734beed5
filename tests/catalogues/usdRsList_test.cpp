#include "catalogues/usdRsList.h"

#include <gtest/gtest.h>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;
using vxTest::wide;

/// Settings that were attached to /out/a, then to /out/b, before their section is read.
struct _settingsCase {
    const char *what, *header, *path;
    QByteArray text;              ///< "@" stands for the common begin of the archive parameters
    const char *stored, *output;  ///< camera, switch, file; output of the Houdini job of /out/a
};

const _settingsCase settingsCases[] = {
    {"all", "07stage/rs1.parm {", "/stage/rs1", "camera=\"/cam\"|@enable=\"on\"|@FILENAME=/x/$OS/a_$OS.$F4.rs",
     "/cam on /x/$OS/a_$OS.%4d.rs", "/x/rs1/|a_rs1.|.rs"},
    {"controls_are_no_values", "obj/img/rs1.parm {", "/img/rs1",
     "camera=[ camera\t/cam2 ]|@enable_control=on set|@fileName_control=/y set", "/cam2  ", "||"},
    {"camera_expression", "obj/rs1.parm {", "/obj/rs1", "camera=`chs(\"../cam\")`|cameras=/x", "  ", "||"},
};

class USDSettings : public testing::TestWithParam<_settingsCase> {};

TEST_P(USDSettings, WriteTheirArchiveIntoTheirFirstDriversJobs) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    loader.scan(vxTest::driver("vm_picture=/i/b.exr", "out/b") +
                vxTest::driver("vm_picture=/i/a.exr|soho_outputmode=on|soho_diskfile=/i/a.ifd"));
    const auto read = [&](QByteArray text) {
        QTextStream stream(text.replace("@", "xn__redshiftglobalRS_archive_"));
        QString line = wide(GetParam().header);
        return load_USD_RS_Node(&loader.record(), stream, line);
    };
    const QString path = wide(GetParam().path);
    for (const char* renderNode : {"/out/a", "/out/b"}) USD_RSList.addFromROP(path.toUpper(), wide(renderNode));
    read(vxTest::params(GetParam().text));  // without its brace a section changes nothing
    EXPECT_EQ(plain(USD_RSList.entries().at(0).lopName), plain(path.toUpper()));
    EXPECT_EQ(read(vxTest::params(GetParam().text) + "}\n"), resultSuccess);
    const _USD_RendersettingNode& node = USD_RSList.entries().last();
    EXPECT_EQ(plain(node.lopName), plain(path));
    EXPECT_EQ(plain(node.cameraName + wide(node.archiveEnabled ? " on " : "  ") + node.imageName), GetParam().stored);
    EXPECT_EQ(USD_RSList.findIndexByROP(QStringLiteral("/out/b")), 0);
    const std::string outputs[] = {"/i/|b|.exr", GetParam().output, "/i/|a|.exr"};
    for (int i = 0; i < 3; ++i) EXPECT_EQ(vxTest::outputOf(loader.job(i)), outputs[i]);
    loader.array().count = loader.array().allocated + 1;
    EXPECT_EQ(read("}\n"), resultNoMoreJobs);
}

INSTANTIATE_TEST_SUITE_P(Table, USDSettings, testing::ValuesIn(settingsCases), vxTest::rowName);

}  // namespace

}  // namespace vxP
