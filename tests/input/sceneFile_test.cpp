#include "input/sceneFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
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

QByteArray nameThatIsNotUtf8(const QString& folder) {
    return folder.toUtf8() + "/a\xFF";
}

/// A folder with a scene of one job in it.
class SceneFile : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        write(scene, driver("vm_picture=/img/a.exr"));
    }

    void TearDown() override { unlink(nameThatIsNotUtf8(folder.path()).constData()); }  // Qt cannot

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

QString in(const QString& folder, const char* name) {
    return folder + u'/' + QString::fromUtf8(name);
}

// ---- what cannot be read, or is another file than the one that was asked for

QString socketIn(const QString& folder) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray path = folder.toUtf8() + "/socket";
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const int handle = socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(handle);
    return QString::fromUtf8(path);
}

/// A path of that many characters to a scene in `folder`.
QString longPath(QString folder, int characters) {
    while (folder.size() < characters - 210) folder += u'/' + QString(200, u'd');
    EXPECT_TRUE(QDir().mkpath(folder));
    folder += u'/' + QString(characters - folder.size() - 1, u's');
    write(folder, driver("vm_picture=/img/a.exr"));
    return folder;
}

struct _refused {
    const char* what;
    QString (*make)(const QString& folder);
};

constexpr _refused refused[] = {
    {"missing", [](const QString& folder) { return in(folder, "none.hip"); }},
    {"empty", [](const QString&) { return QString(); }},
    {"folder", [](const QString& folder) { return folder; }},
    {"slash_at_the_end", [](const QString& folder) { return in(folder, "scene.hip/"); }},
    {"endless_device", [](const QString&) { return QStringLiteral("/dev/zero"); }},
    {"socket", socketIn},
    {"pipe",
     [](const QString& folder) {
         EXPECT_EQ(mkfifo((folder.toUtf8() + "/pipe").constData(), 0600), 0);
         return in(folder, "pipe");
     }},
    {"link_to_itself",
     [](const QString& folder) {
         EXPECT_EQ(symlink("link", (folder.toUtf8() + "/link").constData()), 0);
         return in(folder, "link");
     }},
    {"nul", [](const QString& folder) { return in(folder, "scene.hip") + QChar(0) + QLatin1Char('x'); }},
    {"half_of_a_pair",
     [](const QString& folder) {
         for (const char* const name : {"a?", "a\xEF\xBF\xBD"})
             write(in(folder, name), driver("vm_picture=/img/a.exr"));
         return in(folder, "a") + QChar(0xD800);
     }},
    {"not_utf8_on_disk",
     [](const QString& folder) {
         const QByteArray path = nameThatIsNotUtf8(folder);
         EXPECT_EQ(close(open(path.constData(), O_CREAT | O_WRONLY, 0600)), 0);
         return QString::fromUtf8(path);
     }},
    {"cut_by_the_record", [](const QString& folder) { return longPath(folder, 501); }},
    {"name_of_the_hosts_search_path",
     [](const QString& folder) {
         QDir::setSearchPaths(QStringLiteral("scenes"), {folder});
         return QStringLiteral("scenes:scene.hip");
     }},
};

class RefusedPath : public SceneFile, public testing::WithParamInterface<_refused> {};

TEST_P(RefusedPath, CannotBeOpenedAndNothingIsPrinted) {
    const QString path = GetParam().make(folder.path());
    testing::internal::CaptureStderr();
    const qint32 code = codeOf(path);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(code, resultCannotOpen);
}

INSTANTIATE_TEST_SUITE_P(Table, RefusedPath, testing::ValuesIn(refused), vxTest::rowName);

TEST_F(SceneFile, IsFoundUnderAPathThatFillsTheRecordAndThroughLinks) {
    EXPECT_EQ(codeOf(longPath(folder.path(), 500)), resultSuccess);
    ASSERT_TRUE(QFile::link(scene, folder.filePath(QStringLiteral("夜"))));
    EXPECT_EQ(codeOf(folder.filePath(QStringLiteral("夜"))), resultSuccess);
}

TEST_F(SceneFile, NeedsThePermissionToRead) {
    constexpr uid_t nobody = 65534;
    const uid_t self = geteuid();
    const auto codeWithMode = [&](mode_t mode) {
        chmod(scene.toUtf8().constData(), mode);
        if (self == 0 && seteuid(nobody) != 0) return -1;
        const qint32 code = codeOf(scene);
        return seteuid(self) == 0 ? code : -1;
    };
    chmod(folder.path().toUtf8().constData(), 0755);
    if (codeWithMode(0644) != resultSuccess) GTEST_SKIP() << "nobody cannot get there";
    EXPECT_EQ(codeWithMode(0), resultCannotOpen);
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

void cut(const QString& path, qint64 size) {
    EXPECT_TRUE(QFile::resize(path, size));
}

void appendDriver(const QString& path) {
    write(path, driver("vm_picture=/img/c.exr"), QIODevice::Append);
}

struct _change {
    const char* what;
    void (*beforeRead)(const QString& path, int readsDone);
    int jobs;
};

constexpr _change changes[] = {
    {"none", [](const QString&, int) {}, 2},
    {"cut_behind_the_position",
     [](const QString& path, int read) {
         if (read == 1) cut(path, 400000);
     },
     1},
    {"cut_before_the_position",
     [](const QString& path, int read) {
         if (read == 1) cut(path, 10);
     },
     1},
    {"cut_and_grown_again",
     [](const QString& path, int read) {
         if (read == 1) cut(path, 10);
         if (read == 2) cut(path, 700000);
     },
     1},
    {"grown_at_once",
     [](const QString& path, int read) {
         if (read == 0) appendDriver(path);
     },
     3},
    {"grown_at_its_end",
     [](const QString& path, int read) {
         if (read == 3) appendDriver(path);
     },
     3},
    {"growing_without_end",
     [](const QString& path, int read) {
         if (read < 100) appendDriver(path);
     },
     6},
    {"removed", [](const QString& path, int) { QFile::remove(path); }, 2},
    {"replaced",
     [](const QString& path, int read) {
         if (read != 1) return;
         const QByteArray other = path.toUtf8() + ".new";
         write(QString::fromUtf8(other), "set -g OTHER = 'x'\n");
         EXPECT_EQ(std::rename(other.constData(), path.toUtf8().constData()), 0);
     },
     2},
};

class ChangingFile : public SceneFile, public testing::WithParamInterface<_change> {};

/// Three reads take the file to the end that it has at first: a driver in the first block, one in the last.
TEST_P(ChangingFile, IsReadAsFarAsItCanBe) {
    write(scene,
          driver("vm_picture=/img/a.exr") + QByteArray("fps 24\n").repeated(90000) + driver("vm_picture=/img/b.exr"));
    vxTest::freshScanState();
    vxTest::_loader loader(scene);
    _sceneFacts facts;
    _watchedFile source(scene, [&](int readsDone) { GetParam().beforeRead(scene, readsDone); });
    EXPECT_EQ(scanScene(loader.record(), source, facts), resultSuccess);
    EXPECT_EQ(loader.count(), GetParam().jobs);
}

INSTANTIATE_TEST_SUITE_P(Table, ChangingFile, testing::ValuesIn(changes), vxTest::rowName);

}  // namespace

}  // namespace vxP
