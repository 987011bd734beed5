// Paths of scenes, with links to folders.
#include "host/base/scenePath.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

TEST(ScenePath, IsTidiedWhereItStaysTheSameFile) {
    const fs::path root = fs::canonical(fs::temp_directory_path()) / ("scenePath_test" + std::to_string(getpid()));
    fs::create_directories(root / "a/b");
    fs::create_directories(root / "other");
    fs::create_directory_symlink(root / "other", root / "a/link");
    for (const char* scene : {"a/s.hip", "s.hip"}) std::ofstream{root / scene} << scene;
    const auto resolved = [&](const char* path) { return vxH::absoluteScenePath((root / path).c_str()).path; };
    EXPECT_EQ(resolved("a/./b/../s.hip").toStdString(), root / "a/s.hip");
    EXPECT_EQ(resolved("a/link/../s.hip").toStdString(), root / "a/link/../s.hip");  // the one in the root
    fs::remove_all(root);
}

TEST(ScenePathProblem, SaysWhyThePluginCannotHaveThePath) {
    const auto problemOf = [](const std::string& path) { return vxH::absoluteScenePath(path.c_str()).problem; };
    EXPECT_EQ(problemOf("/" + std::string(499, 'a')), QString());
    EXPECT_TRUE(problemOf("/" + std::string(500, 'a')).contains(QLatin1String("501 characters")));
    EXPECT_TRUE(problemOf("/a\xff.hip").contains(QLatin1String("not valid UTF-8")));
}

}  // namespace
