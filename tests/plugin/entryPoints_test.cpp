// Loads as a host calls for them; cHost.c asks for the plug-in's description.
#include <gtest/gtest.h>

#include <limits>
#include <utility>

#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace {

using vxTest::plain;
using vxTest::plainOf;

TEST(SceneLoad, RefusesAnotherLayoutBeforeItLooksForTheScene) {
    const std::pair<const char*, void (*)(vxJ::_JobBasicsArray&)> layouts[] = {
        {"minor", [](vxJ::_JobBasicsArray& array) { array.structureMinor = 0; }},
        {"major", [](vxJ::_JobBasicsArray& array) { array.structureVersion = 1034; }},
        {"size", [](vxJ::_JobBasicsArray& array) { array.recordSize = 226964; }}};
    for (const auto& [what, change] : layouts) {
        vxTest::_loader loader(QStringLiteral("/none.hip"));
        EXPECT_EQ(pLoadSceneFile(&loader.record()), vxP::resultCannotOpen);
        change(loader.array());
        EXPECT_EQ(pLoadSceneFile(&loader.record()), vxP::resultVersionMismatch) << what;
    }
}

/// The counts are held against each other before the scene is looked for.
TEST(SceneLoad, RefusesAnArrayWithoutARecordOfEachJob) {
    for (const auto& [count, allocated] : {std::pair{std::numeric_limits<qint32>::max(), 0}, {4, 3}, {-1, 0}, {0, 1}}) {
        vxTest::_loader loader(QStringLiteral("/none.hip"));
        loader.array().count = count;
        loader.array().allocated = allocated;
        EXPECT_EQ(pLoadSceneFile(&loader.record()), vxP::resultNoMoreJobs) << count << " of " << allocated;
        EXPECT_EQ(loader.array().jobs, nullptr);
        EXPECT_EQ(std::exchange(loader.array().allocated, 0), allocated);
    }
}

// ---- the example scene, whole: every renderer's driver with what a host reads of its jobs

/// driver | application | renderer | folder | file | extension, digits | frames | camera | take | number, waits for |
/// scene | licences | channels
constexpr const char* expectedJobs =
    R"(/out/mantra_beauty|Houdini|createIFD|<Database>ifd/|mantra_beauty.|.ifd,4|1001-1100x1|/obj/cam1|Main|1,|SCENE|Houdini|
/out/mantra_beauty|Mantra_StdA||<Database>render/|mantra_beauty.|.exr,4|1001-1100x1|/obj/cam1|Main|2,1|<Database>ifd/mantra_beauty.<FN4>.ifd|Mantra_StdA|
/out/arnold_beauty|Houdini|arnold|<Database>render/arnold_beauty/|turntable.|.exr,4|1001-1100x1|/obj/cam1|Main|3,|SCENE|Houdini|<Database>render/arnold_beauty/turntable.diffuse..exr,<Database>render/arnold_beauty/turntable.specular..exr
/out/redshift_beauty|Houdini|redshift|<Database>render/|redshift_beauty.<ValueVar @$AOV.>|.exr,4|1001-1100x1|/obj/cam_detail|closeup|4,|SCENE|Houdini|<Database>render/redshift_beauty.depth..exr,<Database>render/redshift_beauty.crypto..exr
/out/vray_beauty|Houdini|createVrScene|<Database>vrscene/|vray_beauty.|.vrscene,4|1001-1100x1||Main|5,|SCENE|Houdini|
/out/vray_beauty|VRay_StdA|multifile|/projects/kettle/review/tt010/|vray_beauty.|.png,4|1001-1100x1||Main|6,5|<Database>vrscene/vray_beauty.<FN4>.vrscene||
/out/kettle_geometry|Houdini|geometry|<Database>geo/|kettle_geometry.|.bgeo.sc,4|1001-1100x1||Main|7,|SCENE|Houdini|
/out/kettle_alembic|Houdini|alembic-singleFile|/projects/kettle/publish/tt010/|kettle.abc|,one file|1001-1100x1||Main|8,|SCENE|Houdini|
/out/mantra_stereo|Houdini||<Database>render/|mantra_stereo.<Channel>.<Stereo>|.exr,4|1001-1100x1|/obj/stereocam1||9,|SCENE|Houdini|
/out/light_test|Houdini|opengl|<Database>review/|light_test.|.png,4|1001-1100x25|/obj/cam1|Main|10,|SCENE|Houdini|
/stage/karma1|Houdini|usd_karma|<Database>render/|turntable.karma1.|.exr,4|1001-1100x1|/cameras/cam1|Main|11,|SCENE|Houdini|
/stage/usdrender_rop1|Houdini|createUSD_karma|<Database>usd/|usdrender_rop1.|.usd,4|1001-1100x1||Main|12,|SCENE|Houdini|
/stage/usdrender_rop1|USD_StdA|Hdni|<Database>render/usd/|turntable.|.exr,4|1001-1100x1||Main|13,12|<Database>usd/usdrender_rop1.<FN4>.usd||
/out/mantra_stereo|Houdini||<Database>render/|mantra_stereo.<Channel>.<Stereo>|.exr,4|1001-1100x1|/obj/stereocam1|Main|14,|SCENE|Houdini|
/out/mantra_stereo|Houdini||<Database>render/|mantra_stereo.<Channel>.<Stereo>|.exr,4|1001-1100x1|/obj/stereocam1|closeup|15,|SCENE|Houdini|
/out/light_test|Houdini|opengl|<Database>review/|light_test_wedge_key_2.000000.|.png,4|1001-1100x25|/obj/cam1|Main|16,|SCENE|Houdini|
/out/light_test|Houdini|opengl|<Database>review/|light_test_wedge_key_4.000000.|.png,4|1001-1100x25|/obj/cam1|Main|17,|SCENE|Houdini|
/out/light_test|Houdini|opengl|<Database>review/|light_test_wedge_key_6.000000.|.png,4|1001-1100x25|/obj/cam1|Main|18,|SCENE|Houdini|
)";

QString rowOf(const vxJ::_JobBasics_largePath& job) {
    const auto& settings = job.sceneSettings;
    const QString frames = QStringLiteral("%1-%2x%3").arg(settings.seqStart + 0.0).arg(settings.seqEnd + 0.0);
    const QString digits = job.imageSingleOutputFile ? QStringLiteral("one file") : QString::number(job.imagePadding);
    const QString waits = job.waitForPreIDCount == 0 ? QString() : QString::number(job.waitForPreIDs[0]);
    QStringList channels;
    for (const vxJ::_channelSlot& slot : job.channels)
        if (!slot.fileName.isEmpty()) channels.append(slot.fileName.toQString() + slot.extension.toQString());
    QString row;
    for (const QString& cell :
         {job.layer.toQString(), job.app.toQString(), job.appRenderer.toQString(), job.imageDir.toQString(),
          job.imageFileName.toQString(), job.imageExtension.toQString() + u',' + digits, frames.arg(settings.seqStep),
          job.camera.toQString(), job.channel.toQString(), QString::number(job.preID) + u',' + waits,
          job.sceneName.toQString(), job.requiredLicenses.toQString()})
        row += cell + u'|';
    return row + channels.join(u',') + u'\n';
}

TEST(ExampleScene, GivesTheJobsOfEveryRenderer) {
    vxTest::freshScanState();
    const QString path = QStringLiteral(VX_EXAMPLE_SCENE);
    vxTest::_loader loader(path);
    ASSERT_EQ(pLoadSceneFile(&loader.record()), vxP::resultSuccess);
    EXPECT_EQ(plainOf(loader.array().message), " \"AllowLocalSceneCopy=0~0\" -NoSceneExistCheck ");
    QString rows;
    for (int i = 0; i < loader.count(); ++i) rows += rowOf(loader.job(i));
    EXPECT_EQ(plain(rows.replace(path, QStringLiteral("SCENE"))), expectedJobs);
}

}  // namespace
