#include "plugin/jobFinishing.h"

#include <gtest/gtest.h>

#include "scan/scanState.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;
using vxTest::plain;
using vxTest::plainOf;

/// One export pair for each application, and what its render job must say.
struct _pairCase {
    const char *what, *lines, *app, *renderer, *sceneName, *versionMinor;
};

constexpr _pairCase pairCases[] = {
    {"mantra", "vm_picture=/i/a.$F4.exr|soho_outputmode=\"on\"|soho_diskfile=/x/y/a.$F3.ifd", "Mantra_StdA", "",
     "/x/y/a.<FN3>.ifd", "5.640"},
    {"arnold", "ar_picture=/i/a.$F4.exr|ar_ass_export_enable=on|ar_ass_file=/x/y/a.$F4.ass", "Arnold", "HtoA",
     "/x/y/a.<FN4>.ass", "10000"},
    {"redshift", "RS_outputFileNamePrefix=/i/a.$F4.exr|RS_archive_enable=on|RS_archive_file=/x/y/a.$F4.rs", "Redshift",
     "createRS", "/x/y/a.<FN4>.rs", "00000"},
    {"renderman", "ri_display_0=/i/a.$F4.exr|rib_outputmode=on|soho_diskfile=/x/y/a.$F4.rib", "RenderMan", "createRIB",
     "/x/y/a.<FN4>.rib", "20000"},
    {"vray_per_frame", "vm_picture=/i/a.$F4.exr|render_export_mode=2|render_export_filepath=/x/a.$F4.vrscene",
     "VRay_StdA", "multifile", "/x/a.<FN4>.vrscene", "5.640"},
    {"vray_one_file", "vm_picture=/i/a.$F4.exr|render_export_mode=2|render_export_filepath=/x/a.vrscene", "VRay_StdA",
     "createVrScene", "/x/a.vrscene", "5.640"},
    {"usd_per_frame", "outputimage=/i/a.$F4.exr|lopoutput=/x/a.$F4.usd", "USD_StdA", "Hdni", "/x/a.<FN4>.usd", "5.640"},
    {"usd_one_file", "outputimage=/i/a.$F4.exr|lopoutput=/x/a.usd", "USD_StdA_single", "Hdni", "/x/a.usd", "5.640"},
};

class RenderJobOfExport : public testing::TestWithParam<_pairCase> {};

TEST_P(RenderJobOfExport, TakesTheExportAsItsScene) {
    vxTest::freshScanState();
    // The first switch and the last one have no version.
    const auto arguments =
        QStringLiteral("-customRenVer_Arnold -customRenVer_Redshift 3 -CUSTOMRENVER_PRMAN 25.2 -customRenVer_VRay");
    vxTest::_loader loader(QStringLiteral("/proj/shots/scene.hip"), arguments.split(u' '));
    const QByteArray variables = "set -g _HIP_SAVEVERSION = '19.5.640'\nset -g HtoA_KickVersion = '7.1.2'\n";
    ASSERT_EQ(loader.load(variables + driver(GetParam().lines)), resultSuccess);
    ASSERT_EQ(loader.count(), 2);
    EXPECT_EQ(plainOf(loader.job(0).sceneName), "/proj/shots/scene.hip");
    EXPECT_EQ(plainOf(loader.job(0).requiredLicenses), "Houdini");
    EXPECT_EQ(loader.job(0).appVersionMajor, 19);
    EXPECT_EQ(plainOf(loader.job(0).appVersionMinor), "5.640");
    EXPECT_EQ(plainOf(loader.job(1).app), GetParam().app);
    EXPECT_EQ(plainOf(loader.job(1).appRenderer), GetParam().renderer);
    EXPECT_EQ(plainOf(loader.job(1).sceneName), GetParam().sceneName);
    EXPECT_EQ(plainOf(loader.job(1).appVersionMinor), GetParam().versionMinor);
    EXPECT_EQ(plain(loader.array().message.view()), " -NoSceneExistCheck ");
}

INSTANTIATE_TEST_SUITE_P(Table, RenderJobOfExport, testing::ValuesIn(pairCases), vxTest::rowName);

TEST(JobFinishing, CompressesIfdFilesOnRequest) {
    vxTest::freshScanState();
    vxTest::_loader loader(QStringLiteral("/p/s.hip"), {QStringLiteral("-HOUDINICOMPRESSEDIFD")});
    ASSERT_EQ(loader.load(driver(pairCases[0].lines)), resultSuccess);
    EXPECT_EQ(plainOf(loader.job(0).appRenderer), "createIFDzip");
    EXPECT_EQ(plainOf(loader.job(0).imageExtension), ".ifd.gz");
    EXPECT_EQ(plainOf(loader.job(1).sceneName), "/x/y/a.<FN3>.ifd.gz");
}

TEST(JobFinishing, OrdersVariablesByLengthAndKeepsEqualOnes) {
    vxTest::freshScanState();
    vxTest::_loader().load("set -g JOB = '/b'\nset -g B = '1'\nset -g A = '2'\nset -g JOBX = '/a'\n");
    QString names;
    for (const _namevalue& variable : hVariables.toList()) names += variable.name + u' ';
    EXPECT_EQ(plain(names), "JOBX JOB B A ");
}

TEST(JobFinishing, MarksStereoOnlyOnJobsThatRender) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    const QByteArray exporting = driver(pairCases[0].lines + QByteArray("|camera=/obj/stereocam1|take=wide"));
    ASSERT_EQ(loader.load(exporting + driver("res=2048\t1080", "obj/stereocam1") + "set -g JOB = '/proj'\n"), 1);
    ASSERT_EQ(loader.count(), 2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(plainOf(loader.job(i).camera), "/obj/stereocam1");
        EXPECT_EQ(plainOf(loader.job(i).channel), "wide");
        EXPECT_EQ(plain(loader.job(i).sceneSettings.customData_Str(QStringLiteral("HoudiniJob"))), "/proj");
        EXPECT_EQ(plainOf(loader.job(i).imageFileName), i == 0 ? "a." : "a.<Stereo>");
        EXPECT_EQ(plainOf(loader.job(i).imageStereoL), i == 0 ? "" : "_left");
        EXPECT_EQ(plainOf(loader.job(i).imageStereoR), i == 0 ? "" : "_right");
    }
}

TEST(JobFinishing, TellsOfDriversWithoutUsableOutputOnlyWhenThereIsNoJob) {
    vxTest::freshScanState();
    const QByteArray viewer = driver("vm_picture=ip");
    EXPECT_EQ(vxTest::_loader().load(viewer), resultNoUsableOutput);
    EXPECT_EQ(vxTest::_loader().load(viewer + driver("vm_picture=/i/a.exr", "out/b")), resultSuccess);
}

}  // namespace

}  // namespace vxP
