#include "input/sceneFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <functional>

#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;

void write(const QString& path, const QByteArray& scene, QIODevice::OpenMode mode = QIODevice::WriteOnly) {
    QFile file(path);
    ASSERT_TRUE(file.open(mode));
    ASSERT_EQ(file.write(scene), scene.size());
}

/// A folder with a scene of one job in it.
class SceneFile : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        write(scene, driver("vm_picture=/img/a.exr"));
    }

    QTemporaryDir folder;
    const QString scene = folder.filePath(QStringLiteral("scene.hip"));
};

qint32 codeOf(const QString& path) {
    vxTest::freshScanState();
    vxTest::_loader loader(path);
    const qint32 code = pLoadSceneFile(&loader.record());
    EXPECT_EQ(loader.count(), code == resultSuccess ? 1 : 0);
    return code;
}

// ---- which files are read

/// A path of that many characters to a scene in `folder`.
QString longPath(QString folder, int characters) {
    while (folder.size() < characters - 210) folder += u'/' + QString(200, u'd');
    EXPECT_TRUE(QDir().mkpath(folder));
    folder += u'/' + QString(characters - folder.size() - 1, u's');
    write(folder, driver("vm_picture=/img/a.exr"));
    return folder;
}

TEST_F(SceneFile, IsRefusedWithoutAWordWhereItIsAnotherFileOrNone) {
    const auto in = [&](const char* name) { return folder.filePath(QString::fromUtf8(name)); };
    const QByteArray notUtf8 = folder.path().toUtf8() + "/b\xFF";
    EXPECT_EQ(close(open(notUtf8.constData(), O_CREAT | O_WRONLY, 0600)), 0);
    EXPECT_EQ(mkfifo(in("pipe").toUtf8().constData(), 0600), 0);
    EXPECT_EQ(symlink("link", in("link").toUtf8().constData()), 0);
    for (const char* const likeHalfOfAPair : {"a?", "a\xEF\xBF\xBD"}) write(in(likeHalfOfAPair), {});
    QDir::setSearchPaths(QStringLiteral("scenes"), {folder.path()});
    const QString paths[] = {QString(),
                             folder.path(),
                             in("none.hip"),
                             in("scene.hip/"),
                             in("pipe"),
                             in("link"),
                             QStringLiteral("/dev/zero"),
                             QStringLiteral("scenes:scene.hip"),
                             in("scene.hip") + QChar(0) + QLatin1Char('x'),
                             in("a") + QChar(0xD800),
                             QString::fromUtf8(notUtf8),
                             longPath(folder.path(), 501)};
    testing::internal::CaptureStderr();
    for (const QString& path : paths) EXPECT_EQ(codeOf(path), resultCannotOpen) << path.toStdString();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    unlink(notUtf8.constData());  // Qt cannot
}

TEST_F(SceneFile, IsFoundUnderAPathThatFillsTheRecordAndThroughLinks) {
    EXPECT_EQ(codeOf(longPath(folder.path(), 500)), resultSuccess);
    ASSERT_TRUE(QFile::link(scene, folder.filePath(QStringLiteral("夜"))));
    EXPECT_EQ(codeOf(folder.filePath(QStringLiteral("夜"))), resultSuccess);
}

TEST_F(SceneFile, IsReadAtAnyPlace) {
    write(scene, "0123456789");
    const _sceneFile file(scene);
    EXPECT_EQ(file.byteCount(), 10);
    std::string bytes(4, '-');
    EXPECT_EQ(file.readAt(8, bytes.data(), 4), 2);
    EXPECT_EQ(bytes, "89--");
    ASSERT_TRUE(QFile::resize(scene, 3));
    EXPECT_EQ(file.readAt(5, bytes.data(), 4), 0);

    const _sceneFile none(folder.path());
    EXPECT_EQ(none.byteCount(), 0);
    EXPECT_EQ(none.readAt(0, bytes.data(), 4), -1);
}

int leased = -1;

/// Another program, for example a file server, may have to be asked to let go of the file.
TEST_F(SceneFile, IsWaitedForWhileAnotherProgramHoldsALease) {
    leased = open(scene.toUtf8().constData(), O_RDWR);
    std::signal(SIGIO, [](int) { fcntl(leased, F_SETLEASE, F_UNLCK); });
    const bool isLeased = fcntl(leased, F_SETLEASE, F_WRLCK) == 0;
    const qint32 code = codeOf(scene);
    close(leased);
    if (!isLeased) GTEST_SKIP() << "no leases on this file system";
    EXPECT_EQ(code, resultSuccess);
}

// ---- a file that changes while it is read

/// Hands on the bytes of a file; calls `before` with the number of reads done before each read.
class _watchedFile : public QIODevice {
 public:
    _watchedFile(const QString& path, std::function<void(int)> beforeRead) : file(path), before(std::move(beforeRead)) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

 protected:
    qint64 readData(char* data, qint64 most) override {
        before(reads++);
        return file.read(data, most);
    }
    qint64 writeData(const char*, qint64) override { return -1; }

 private:
    _sceneFile file;
    std::function<void(int)> before;
    int reads = 0;
};

/// What happens to the file, as a letter.
void happen(char what, const QString& path) {
    const QByteArray other = path.toUtf8() + ".new";
    switch (what) {
        case 'a':
            return write(path, driver("vm_picture=/img/c.exr"), QIODevice::Append);
        case 'd':
            EXPECT_TRUE(QFile::remove(path));
            return;
        case 'r':
            write(QString::fromUtf8(other), "set -g OTHER = 'x'\n");
            EXPECT_EQ(std::rename(other.constData(), path.toUtf8().constData()), 0);
            return;
        case '0':
        case '4':
        case '7':
            EXPECT_TRUE(QFile::resize(path, (what - '0') * 100000 + 10));
            return;
        default:
            return;
    }
}

struct _change {
    const char *what, *beforeEachRead;
    int jobs;
};

const QByteArray hundredTimes(100, 'a');

const _change changes[] = {
    {"cut_behind_the_position", ".4", 1},
    {"cut_before_the_position", ".0", 1},
    {"cut_and_grown_again", ".07", 1},
    {"grown_at_once", "a", 3},
    {"grown_at_its_end", "...a", 3},
    {"growing_without_end", hundredTimes.constData(), 6},
    {"removed", "d", 2},
    {"replaced", ".r", 2},
};

class ChangingFile : public SceneFile, public testing::WithParamInterface<_change> {};

/// Three reads take the file to the end that it has at first: a driver in the first block, one in the last.
TEST_P(ChangingFile, IsReadAsFarAsItCanBe) {
    write(scene,
          driver("vm_picture=/img/a.exr") + QByteArray("fps 24\n").repeated(90000) + driver("vm_picture=/img/b.exr"));
    vxTest::freshScanState();
    vxTest::_loader loader(scene);
    _sceneFacts facts;
    const QByteArray letters(GetParam().beforeEachRead);
    _watchedFile source(scene,
                        [&](int readsDone) { happen(readsDone < letters.size() ? letters[readsDone] : '.', scene); });
    EXPECT_EQ(scanScene(loader.record(), source, facts), resultSuccess);
    EXPECT_EQ(loader.count(), GetParam().jobs);
}

INSTANTIATE_TEST_SUITE_P(Table, ChangingFile, testing::ValuesIn(changes), vxTest::rowName);

}  // namespace

}  // namespace vxP
