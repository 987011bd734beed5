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
struct _expectation {
    const char* scene;
    qint32 code;
    std::vector<const char*> drivers;
};

const _expectation expectations[] = {
    {"attribute_wrangler_bug.hiplc", 25, {}},
    {"ifd_test.hiplc", 1, {"/out/mantra1", "/out/mantra1"}},
    {"karma_aovs.hip", 1, {"/stage/karmarendersettings"}},
    // Two takes: the drivers without a take of their own are copied for both.
    {"ocean.hip",
     1,
     {"/out/Redshift_ROP", "/out/Redshift_ROP_look_dev", "/out/Redshift_Proxy_Nature_Rock", "/out/Redshift_ROP_atmos",
      "/out/Redshift_ROP_meta", "/out/center_glow_object", "/out/Redshift_ROP_look_dev", "/out/Redshift_ROP_look_dev",
      "/out/Redshift_Proxy_Nature_Rock", "/out/Redshift_Proxy_Nature_Rock", "/out/center_glow_object",
      "/out/center_glow_object"}},
    {"qlib_super_light.hip",
     1,
     {"/out/test_grid", "/out/test_grid", "/out/test", "/out/test", "/out/test", "/out/test", "/out/test",
      "/out/test"}},
    {"usd_shot_lighting.hip", 1, {"/stage/karma1"}},
};

class RealScenes : public testing::Test {
 protected:
    void SetUp() override {
        if (!folder.exists()) GTEST_SKIP() << "no real scenes at " << VX_REAL_SCENES;
    }

    QDir folder{QStringLiteral(VX_REAL_SCENES)};
};

void expectPlausible(const vxJ::_JobBasics_largePath& job) {
    EXPECT_EQ(job.structureIDs[0], 1033);
    EXPECT_TRUE(plainOf(job.layer).starts_with("/")) << plainOf(job.layer);
    EXPECT_FALSE(job.app.isEmpty());
    EXPECT_FALSE(job.imageFileName.isEmpty());
    EXPECT_LE(job.sceneSettings.seqStart + 0.0, job.sceneSettings.seqEnd + 0.0);
    EXPECT_FALSE(job.sceneName.isEmpty());
    EXPECT_GT(job.appVersionMajor + 0, 10);
    EXPECT_LE(job.waitForPreIDCount, 1);
    EXPECT_FALSE(job.imageFileName.contains(u"/"));
}

TEST_F(RealScenes, GivePlausibleJobs) {
    const QStringList names = folder.entryList({QStringLiteral("*.hip*")}, QDir::Files);
    ASSERT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        SCOPED_TRACE(plain(name));
        vxTest::freshScanState();
        vxTest::_loader loader(folder.filePath(name));
        const qint32 code = pLoadSceneFile(&loader.record());
        EXPECT_EQ(code, loader.count() > 0 ? 1 : 25);
        for (int i = 0; i < loader.count(); ++i) expectPlausible(loader.job(i));
    }
}

TEST_F(RealScenes, GiveTheJobsThatTheirTextHolds) {
    for (const _expectation& expected : expectations) {
        SCOPED_TRACE(expected.scene);
        vxTest::freshScanState();
        vxTest::_loader loader(folder.filePath(QString::fromLatin1(expected.scene)));
        EXPECT_EQ(pLoadSceneFile(&loader.record()), expected.code);
        ASSERT_EQ(static_cast<std::size_t>(loader.count()), expected.drivers.size());
        for (std::size_t i = 0; i < expected.drivers.size(); ++i)
            EXPECT_EQ(plainOf(loader.job(static_cast<int>(i)).layer), expected.drivers[i]);
    }
}

}  // namespace
