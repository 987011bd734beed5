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

/// An export pair for each application: the export's renderer, then the render job's application, renderer, scene and
/// version.
struct _pairCase {
    const char *what, *lines, *pair;
};

constexpr _pairCase pairCases[] = {
    {"mantra", "vm_picture=/i/a.$F4.exr|soho_outputmode=\"on\"|soho_diskfile=/x/y/a.$F3.ifd",
     "createIFD Mantra_StdA  /x/y/a.<FN3>.ifd 5.640"},
    {"arnold", "ar_picture=/i/a.$F4.exr|ar_ass_export_enable=on|ar_ass_file=/x/a.$F4.ass",
     "createASS Arnold HtoA /x/a.<FN4>.ass 10000"},
    {"redshift", "RS_outputFileNamePrefix=/i/a.$F4.exr|RS_archive_enable=on|RS_archive_file=/x/a.$F4.rs",
     "createRS Redshift createRS /x/a.<FN4>.rs 00000"},
    {"renderman", "ri_display_0=/i/a.$F4.exr|rib_outputmode=on|soho_diskfile=/x/a.$F4.rib",
     "createRIB RenderMan createRIB /x/a.<FN4>.rib 20000"},
    {"vray_per_frame", "vm_picture=/i/a.$F4.exr|render_export_mode=2|render_export_filepath=/x/a.$F4.vrscene",
     "createVrScene VRay_StdA multifile /x/a.<FN4>.vrscene 5.640"},
    {"vray_one_file", "vm_picture=/i/a.$F4.exr|render_export_mode=2|render_export_filepath=/x/a.vrscene",
     "createVrScene VRay_StdA createVrScene /x/a.vrscene 5.640"},
    {"usd_per_frame", "outputimage=/i/a.$F4.exr|lopoutput=/x/a.$F4.usd",
     "createUSD USD_StdA Hdni /x/a.<FN4>.usd 5.640"},
    {"usd_one_file", "outputimage=/i/a.$F4.exr|lopoutput=/x/a.usd", "createUSD USD_StdA_single Hdni /x/a.usd 5.640"},
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
    const auto& [first, second] = std::tie(loader.job(0), loader.job(1));
    EXPECT_EQ(plainOf(first.sceneName), "/proj/shots/scene.hip");
    EXPECT_EQ(plainOf(first.requiredLicenses), "Houdini");
    EXPECT_EQ(std::to_string(first.appVersionMajor) + "." + plainOf(first.appVersionMinor), "19.5.640");
    EXPECT_EQ(plainOf(first.appRenderer) + " " + plainOf(second.app) + " " + plainOf(second.appRenderer) + " " +
                  plainOf(second.sceneName) + " " + plainOf(second.appVersionMinor),
              GetParam().pair);
    EXPECT_EQ(plainOf(loader.array().message), " -NoSceneExistCheck ");
}

INSTANTIATE_TEST_SUITE_P(Table, RenderJobOfExport, testing::ValuesIn(pairCases), vxTest::rowName);

TEST(JobFinishing, CompressesIfdFilesOnRequest) {
    vxTest::freshScanState();
    vxTest::_loader loader(QStringLiteral("/p/s.hip"), {QStringLiteral("-HOUDINICOMPRESSEDIFD")});
    ASSERT_EQ(loader.load(driver(pairCases[0].lines)), resultSuccess);
    EXPECT_EQ(plainOf(loader.job(0).appRenderer) + vxTest::outputOf(loader.job(0)), "createIFDzip/x/y/|a.|.ifd.gz");
    EXPECT_EQ(plainOf(loader.job(1).sceneName), "/x/y/a.<FN3>.ifd.gz");
}

TEST(JobFinishing, MarksStereoOnlyOnJobsThatRender) {
    const QByteArray exporting = driver(pairCases[0].lines + QByteArray("|camera=/obj/stereocam1|take=wide"));
    const auto loader =
        vxTest::loaded(exporting + driver("res=2048\t1080", "obj/stereocam1") + "set -g JOB = '/proj'\n");
    ASSERT_EQ(loader->count(), 2);
    for (int i = 0; i < 2; ++i) {
        const auto& job = loader->job(i);
        EXPECT_EQ(plainOf(job.camera) + plainOf(job.channel), "/obj/stereocam1wide");
        EXPECT_EQ(plain(job.sceneSettings.customData_Str(QStringLiteral("HoudiniJob"))), "/proj");
        EXPECT_EQ(plainOf(job.imageFileName) + plainOf(job.imageStereoL) + plainOf(job.imageStereoR),
                  i == 0 ? "a." : "a.<Stereo>_left_right");
    }
}

}  // namespace

}  // namespace vxP
