// Real scenes, where they are at hand: what a load gives against what a look at the scene's text gives, in which every
// node stands with its type, its frames and its camera. The plug-in knows no types.
#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>

#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace {

using vxTest::plain;
using vxTest::plainOf;

constexpr const char *noOutput = "drivers without a usable output", *noDriver = "no driver";

/// Types of the nodes that the jobs come from, in the jobs' order.
const std::map<std::string, std::string> typesOf{
    {"attribute_wrangler_bug.hiplc", noOutput},
    {"ball_water.hip", "filmboxfbx"},
    {"bounding_image_generation.hiplc", noOutput},
    {"cloud_caches.hip",
     "file file file filecache::2.0 filecache::2.0 filecache::2.0 filecache::2.0 rop_geometry filecache::2.0 "
     "rop_geometry rop_geometry"},
    {"color_adjustment.hip", "ifd"},
    {"csall.hip", "filecache::2.0 karma"},
    {"ifd_test.hiplc", "ifd ifd"},
    {"karma_aovs.hip", "karmarenderproperties"},
    {"lod_create.hip", "gamedev::sop_lod_create::2.0 gamedev::rop_impostor_texture filmboxfbx"},
    {"measure_curvature.hip", "isooffset rop_fbx"},
    {"motion_vector.hip", "filecache"},
    // Two takes: the drivers without a take of their own are copied for both.
    {"ocean.hip",
     "Redshift_ROP Redshift_ROP Redshift_Proxy_Output Redshift_ROP Redshift_ROP alembic Redshift_ROP Redshift_ROP "
     "Redshift_Proxy_Output Redshift_Proxy_Output alembic alembic"},
    {"qlib_breako.hip", noOutput},
    {"qlib_modelfactory.hip", "ifd"},
    {"qlib_space_partition.hip", noOutput},
    {"qlib_super_light.hip", "ifd ifd ifd ifd ifd ifd ifd ifd"},
    {"rbd_solver.hip", noOutput},
    {"render_attribute_modification.hipnc", noOutput},
    {"skinning_converter.hip", "filecache file filmboxfbx"},
    {"terrain_convert.hip", noDriver},
    {"test_hdas.hiplc", noOutput},
    {"time_samples.hipnc", noOutput},
    {"usd_hda.hipnc", noOutput},
    {"usd_shot_lighting.hip", "karma"},
    {"vortex_cloud.hip", "filecache filecache filecache filecache filecache Redshift_ROP Redshift_ROP"},
};

/// What a pattern's group finds first in the text, or nothing.
QString found(const QString& text, const QString& pattern) {
    return QRegularExpression(pattern, QRegularExpression::MultilineOption).match(text).captured(1);
}

/// Value of a parameter, or nothing.
QString valueOf(const QString& section, const char* name) {
    return found(section, u'^' + vxTest::wide(name) + QStringLiteral("\\t\\[[^]]*\\]\\t\\(\\t(.*)\\t\\)$"));
}

/// First and last frame, "1-24": a node's own where its switch is on, else the scene's.
QString framesOf(const QString& scene, const QString& section) {
    const bool own = QStringLiteral("\"on\" \"normal\"").split(u' ').contains(valueOf(section, "trange"));
    const QString range = own ? valueOf(section, "f").remove(QRegularExpression(QStringLiteral("f[12]\\t")))
                              : found(scene, QStringLiteral("^frange (.*)$"));
    const auto numbers = QRegularExpression(QStringLiteral("(-?\\d+)\\D+?(-?\\d+)")).match(range);
    return numbers.captured(1) + u'-' + numbers.captured(2);
}

TEST(RealScenes, GiveTheJobsThatTheirTextHolds) {
    const QDir folder(QStringLiteral(VX_REAL_SCENES));
    if (!folder.exists()) GTEST_SKIP() << "no real scenes at " << VX_REAL_SCENES;
    std::size_t known = 0;
    for (const QString& name : folder.entryList({QStringLiteral("*.hip*")}, QDir::Files)) {
        SCOPED_TRACE(plain(name));
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        const QString scene = QString::fromLatin1(bytes.constData(), static_cast<int>(bytes.size()));  // NULs and all
        vxTest::freshScanState();
        vxTest::_loader loader(file.fileName());
        const qint32 code = pLoadSceneFile(&loader.record());
        QStringList types;
        for (int i = 0; i < loader.count(); ++i) {
            const auto& job = loader.job(i);
            const QString node = QRegularExpression::escape(job.layer.toQString().mid(1));
            types.append(found(scene, node + QStringLiteral("\\.init\\x{0}type = (\\S+)$")));
            const QString section = found(scene, node + QStringLiteral("\\.parm\\x{0}(\\{\\n(?:.*\\n)*?\\}$)"));
            const QString camera = valueOf(section, "camera") + valueOf(section, "RS_renderCamera");
            EXPECT_EQ(plainOf(job.camera), plain(camera.startsWith(u'/') ? camera : QString())) << plain(node);
            EXPECT_EQ(
                plain(QStringLiteral("%1-%2").arg(job.sceneSettings.seqStart + 0).arg(job.sceneSettings.seqEnd + 0)),
                plain(framesOf(scene, section)))
                << plain(node);
            EXPECT_FALSE(job.app.isEmpty() || job.imageFileName.isEmpty() || job.imageFileName.contains(u"/"));
        }
        if (types.isEmpty()) types.append(vxTest::wide(code == vxP::resultSuccess ? noDriver : noOutput));
        EXPECT_TRUE(code == vxP::resultSuccess || (loader.count() == 0 && code == vxP::resultNoUsableOutput)) << code;
        const auto expected = typesOf.find(plain(name));
        if (expected == typesOf.end()) continue;
        EXPECT_EQ(plain(types.join(u' ')), expected->second);
        ++known;
    }
    EXPECT_EQ(known, typesOf.size());
}

}  // namespace
