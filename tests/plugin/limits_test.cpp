// What a load does with more than any real scene holds.
#include <gtest/gtest.h>

#include "bench/hostileScenes.h"
#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/pieces.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;

TEST(Limits, EndHostileScenesInOrderAndWithoutAWord) {
    const vxTest::_sceneFolder folder;
    const QString path = folder.filePath(QStringLiteral("hostile.hip"));
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (const auto& scene : vxBench::hostileScenes(vxBench::smallMost)) {
        vxBench::writeHostileScene(scene, vxBench::smallBytes, path.toStdString());
        vxTest::freshScanState();
        vxTest::_loader loader(path);
        EXPECT_EQ(pLoadSceneFile(&loader.record()), scene.code) << scene.name;
        EXPECT_EQ(loader.count(), scene.jobs) << scene.name;
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr(), "");
}

/// These need their size to reach a limit.
TEST(Limits, OfMemoryAndWorkEndALoadBehindTheJobsBefore) {
    const QByteArray variables = "set -g V = '" + QByteArray(30000, 'x') + "'\n";
    for (const QByteArray& scene :
         {variables.repeated(1600), QByteArray("out/a.parm {\ntake\t(a\n}\n").repeated(1000000)}) {
        vxTest::freshScanState();
        vxTest::_loader loader;
        loader.scan(driver("vm_picture=/i/a.exr"));
        EXPECT_THROW(loader.scan(scene), std::exception);
        EXPECT_EQ(loader.count(), 1);
    }
}

/// A scene whose second line is 4 GB long.
class _longLine : public vxTest::_pieces {
 public:
    _longLine() : _pieces("\n" + driver("vm_picture=/i/b.exr"), 1 << 20, true) {}

 protected:
    qint64 readData(char* data, qint64 most) override {
        const qint64 count = std::min(most, left);
        if (count == 0) return _pieces::readData(data, most);
        std::memset(data, 'x', static_cast<std::size_t>(count));
        left -= count;
        return count;
    }

 private:
    qint64 left = qint64{4} << 30;
};

TEST(Limits, LetTheReaderPassALineOfFourGigabytes) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    _longLine scene;
    _sceneFacts facts;
    EXPECT_EQ(scanScene(loader.record(), scene, facts), resultSuccess);
    EXPECT_EQ(loader.count(), 1);
}

TEST(Limits, CutNamesAtTheRecordsCapacity) {
    for (const int length : {145, 146, 100000}) {
        vxTest::freshScanState();
        vxTest::_loader loader;
        const QByteArray name(length, 'n');
        const QByteArray lines = "vm_picture=/i/" + name + ".exr|take=wide|camera=/obj/" + name;
        ASSERT_EQ(loader.load(driver(lines, "out/" + name)), 1);
        const auto& job = loader.job(0);
        EXPECT_EQ(job.layer.length(), std::min(length + 5, 150));
        EXPECT_EQ(job.camera.length(), length + 5 <= 150 ? length + 5 : 0);  // a cut path finds no camera ...
        EXPECT_EQ(vxTest::plainOf(job.channel), "wide");                     // ... but its take
        EXPECT_EQ(job.imageDir.length() + job.imageFileName.length() + job.imageExtension.length(),
                  std::min(length + 7, 1000));
    }
}

}  // namespace

}  // namespace vxP
