// Real scenes, where they are at hand: nothing may crash, and every field must be plausible.
#include <gtest/gtest.h>

#include <QDir>

#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace {

using vxTest::plain;
using vxTest::plainOf;

/// What reading the scene's text by hand gives.
const std::map<std::string, std::vector<std::string>> driversOf{
    {"attribute_wrangler_bug.hiplc", {}},
    {"ifd_test.hiplc", {"/out/mantra1", "/out/mantra1"}},
    {"karma_aovs.hip", {"/stage/karmarendersettings"}},
    // Two takes: the drivers without a take of their own are copied for both.
    {"ocean.hip",
     {"/out/Redshift_ROP", "/out/Redshift_ROP_look_dev", "/out/Redshift_Proxy_Nature_Rock", "/out/Redshift_ROP_atmos",
      "/out/Redshift_ROP_meta", "/out/center_glow_object", "/out/Redshift_ROP_look_dev", "/out/Redshift_ROP_look_dev",
      "/out/Redshift_Proxy_Nature_Rock", "/out/Redshift_Proxy_Nature_Rock", "/out/center_glow_object",
      "/out/center_glow_object"}},
    {"qlib_super_light.hip",
     {"/out/test_grid", "/out/test_grid", "/out/test", "/out/test", "/out/test", "/out/test", "/out/test",
      "/out/test"}},
    {"usd_shot_lighting.hip", {"/stage/karma1"}},
};

void expectPlausible(const vxJ::_JobBasics_largePath& job) {
    EXPECT_EQ(job.structureIDs[0], 1033);
    EXPECT_TRUE(plainOf(job.layer).starts_with("/")) << plainOf(job.layer);
    EXPECT_FALSE(job.app.isEmpty() || job.imageFileName.isEmpty() || job.sceneName.isEmpty());
    EXPECT_LE(job.sceneSettings.seqStart + 0.0, job.sceneSettings.seqEnd + 0.0);
    EXPECT_GT(job.appVersionMajor + 0, 10);
    EXPECT_LE(job.waitForPreIDCount, 1);
    EXPECT_FALSE(job.imageFileName.contains(u"/"));
}

TEST(RealScenes, GivePlausibleJobsForTheDriversThatTheirTextHolds) {
    const QDir folder(QStringLiteral(VX_REAL_SCENES));
    if (!folder.exists()) GTEST_SKIP() << "no real scenes at " << VX_REAL_SCENES;
    std::size_t known = 0;
    for (const QString& name : folder.entryList({QStringLiteral("*.hip*")}, QDir::Files)) {
        SCOPED_TRACE(plain(name));
        vxTest::freshScanState();
        vxTest::_loader loader(folder.filePath(name));
        const qint32 code = pLoadSceneFile(&loader.record());
        EXPECT_EQ(code, loader.count() > 0 ? 1 : 25);
        std::vector<std::string> drivers;
        for (int i = 0; i < loader.count(); ++i) {
            expectPlausible(loader.job(i));
            drivers.push_back(plainOf(loader.job(i).layer));
        }
        const auto expected = driversOf.find(plain(name));
        if (expected == driversOf.end()) continue;
        EXPECT_EQ(drivers, expected->second);
        ++known;
    }
    EXPECT_EQ(known, driversOf.size());
}

}  // namespace
