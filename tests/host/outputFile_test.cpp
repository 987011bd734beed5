// Files of all kinds, as scenes that are read and as outputs that are written.
#include "host/base/outputFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "host/base/descriptorWrite.h"
#include "host/base/systemReason.h"
#include "tests/testText.h"

namespace {

namespace fs = std::filesystem;

/// The tests run in a folder with one file of each kind.
class OddFiles : public testing::Test {
 protected:
    OddFiles() {
        fs::create_directories(folder / "folder");
        fs::current_path(folder);
        std::ofstream{"file"} << "old";
        fs::create_hard_link("file", "same file");
        fs::create_symlink("file", "link");
        fs::create_symlink("nothing", "broken link");
        mkfifo("pipe", 0600);
        const int number = socket(AF_UNIX, SOCK_STREAM, 0);
        const sockaddr_un name{AF_UNIX, "socket"};
        bind(number, reinterpret_cast<const sockaddr*>(&name), sizeof name);
        close(number);
    }
    ~OddFiles() override {
        fs::current_path(before);
        fs::remove_all(folder);
    }

    static std::string textOf(const char* path) {
        std::ifstream file{path};
        return {std::istreambuf_iterator<char>{file}, {}};
    }
    static mode_t modeOf(const char* path) {
        struct stat status {};
        stat(path, &status);
        return status.st_mode;
    }

    fs::path before = fs::current_path();
    fs::path folder = fs::temp_directory_path() / ("outputFile_test" + std::to_string(getpid()));
};

TEST_F(OddFiles, EachHasItsReason) {
    struct _row {
        const char* path;
        const char* readable;
        const char* writable;
    };
    constexpr _row rows[] = {
        {"file", "", "it is one of the scenes"},
        {"same file", "", "it is one of the scenes"},
        {"link", "", "it is one of the scenes"},
        {"nothing", "No such file or directory", ""},
        {"broken link", "a link to nothing: No such file or directory", ""},
        {"file/below", "Not a directory", ""},
        {"folder", "a folder, not a regular file", "it is a folder"},
        {"pipe", "a pipe, not a regular file", ""},
        {"socket", "a socket, not a regular file", "it is a socket"},
        {"/dev/null", "a device, not a regular file", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(vxTest::plain(vxH::whyNotReadable(QString::fromUtf8(row.path))), row.readable) << row.path;
        EXPECT_EQ(vxTest::plain(vxH::problemOfOutput(row.path, {"nothing", "link"})), row.writable) << row.path;
    }
    EXPECT_TRUE(vxH::problemOfOutput("file", {"nothing"}).isEmpty());
}

TEST_F(OddFiles, RegularOnesAreReplacedWholeAndKeepTheirPermissions) {
    chmod("file", 0640);
    EXPECT_EQ(vxTest::plain(vxH::writeOutputFile("link", "new")), "");
    EXPECT_EQ(textOf("file"), "new");
    EXPECT_EQ(textOf("same file"), "old");
    EXPECT_TRUE(fs::is_symlink("link"));
    EXPECT_EQ(modeOf("file"), mode_t{S_IFREG | 0640});

    const mode_t mask = umask(027);
    EXPECT_EQ(vxTest::plain(vxH::writeOutputFile("broken link", "new")), "");
    umask(mask);
    EXPECT_EQ(textOf("nothing"), "new");
    EXPECT_EQ(modeOf("nothing"), mode_t{S_IFREG | 0640});
}

TEST_F(OddFiles, DevicesStayDevices) {
    EXPECT_EQ(vxTest::plain(vxH::writeOutputFile("/dev/full", "x")), "No space left on device");
    EXPECT_TRUE(S_ISCHR(modeOf("/dev/full")));
}

TEST_F(OddFiles, PipesAreWrittenToWhetherTheyBlockOrNot) {
    const QByteArray sent(300000, 'x');  // more than a pipe takes
    std::string read;
    std::thread reader{[&] { read = textOf("pipe"); }};
    EXPECT_EQ(vxTest::plain(vxH::writeOutputFile("pipe", sent)), "");
    reader.join();
    EXPECT_EQ(read.size(), 300000U);
    EXPECT_TRUE(S_ISFIFO(modeOf("pipe")));

    reader = std::thread{[&] { read = textOf("pipe"); }};
    const int output = open("pipe", O_WRONLY);
    fcntl(output, F_SETFL, O_NONBLOCK);
    EXPECT_TRUE(vxH::writeAll(output, sent));
    close(output);
    reader.join();
    EXPECT_EQ(read.size(), 300000U);
}

}  // namespace
