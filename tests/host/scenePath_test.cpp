// Paths of scenes, with links to folders.
#include "host/scenePath.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

/// Folders a/b and other, a link a/link -> other, the scenes a/s.hip and s.hip.
class ScenePath : public testing::Test {
 protected:
    ScenePath() {
        fs::create_directories(root / "a/b");
        fs::create_directories(root / "other");
        fs::create_directory_symlink(root / "other", root / "a/link");
        std::ofstream{root / "a/s.hip"} << "a";
        std::ofstream{root / "s.hip"} << "root";
    }
    ~ScenePath() override { fs::remove_all(root); }

    QString below(const char* path) const { return QString::fromStdString((root / path).native()); }
    QString resolved(const char* path) const { return vxH::absoluteScenePath((root / path).c_str()).path; }

    const fs::path root = fs::canonical(fs::temp_directory_path()) / ("scenePath_test" + std::to_string(getpid()));
};

TEST_F(ScenePath, IsTidiedWhereItStaysTheSameFile) {
    EXPECT_EQ(resolved("a/./b/../s.hip"), below("a/s.hip"));
    EXPECT_EQ(resolved("a/link/../s.hip"), below("a/link/../s.hip"));  // the one in the root, not a/s.hip
}

TEST(ScenePathProblem, SaysWhyThePluginCannotHaveThePath) {
    const auto problemOf = [](const std::string& path) { return vxH::absoluteScenePath(path.c_str()).problem; };
    EXPECT_EQ(problemOf("/" + std::string(499, 'a')), QString());
    EXPECT_TRUE(problemOf("/" + std::string(500, 'a')).contains(QLatin1String("501 characters")));
    EXPECT_TRUE(problemOf("/a\xff.hip").contains(QLatin1String("not valid UTF-8")));
}

}  // namespace
