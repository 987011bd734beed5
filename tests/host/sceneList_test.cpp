// Which scenes folders and lists stand for, and in which order.
#include "host/batch/sceneList.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "host/batch/pathList.h"
#include "tests/testText.h"

namespace {

namespace fs = std::filesystem;
using _texts = std::vector<std::string>;

/// A block is what one read gives; "!" stands for a path that there is a problem with.
struct _blocks {
    const char* what;
    _texts blocks;
    _texts paths;
};
const _blocks blockTable[] = {
    {"lines", {"a.hip\nb c.hip\n"}, {"a.hip", "b c.hip"}},
    {"no_end_at_the_last", {"a\nb"}, {"a", "b"}},
    {"lines_of_windows", {"a\r\n\r\nb\r\r\n"}, {"a", "b\r"}},
    {"empty_ones_are_passed_over", {"\n\na\n\n\n"}, {"a"}},
    {"nul", {std::string{"a\nb\0c\r\0\0d", 10}}, {"a\nb", "c\r", "d"}},
    {"nul_decides_within_the_first_block", {"a", std::string{"b\nc\0d\n\0", 8}}, {"ab\nc", "d\n"}},
    {"nul_behind_lines_of_another_block", {"a\n", std::string{"b\0c\nd\n", 6}}, {"a", "!", "d"}},
    {"cut_anywhere", {"/proj", "ects/a", ".hip\n/b", ".hip", "\n"}, {"/projects/a.hip", "/b.hip"}},
    {"too_long", {"a\n" + std::string(65537, 'x'), "x\nb\n"}, {"a", "!", "b"}},
    {"too_long_without_separator", {std::string(65537, 'x'), "xx"}, {"!"}},
    {"as_long_as_can_be", {std::string(65536, 'x') + "\n"}, {std::string(65536, 'x')}},
    {"nothing", {}, {}},
};

class PathList : public testing::TestWithParam<_blocks> {};

TEST_P(PathList, GivesEachPathOnceItIsWhole) {
    vxH::_pathList list;
    _texts paths;
    const auto readOn = [&] {
        for (std::string path;;) {
            QString why;
            if (!list.next(path, why)) return;
            paths.push_back(why.isEmpty() ? path : "!");
        }
    };
    for (const auto& block : GetParam().blocks) {
        list.add(block.data(), block.size());
        readOn();
    }
    list.end();
    readOn();
    EXPECT_EQ(paths, GetParam().paths);
}

INSTANTIATE_TEST_SUITE_P(Table, PathList, testing::ValuesIn(blockTable), vxTest::rowName);

/// Names below a folder; "!" and a name stand for the problem of that folder.
struct _found {
    const char* what;
    _texts names;
    bool recursive;
    _texts entries;
};
const _found foundTable[] = {
    {"files_as_they_are_named", {"b.hip", "other.txt", "missing.hip"}, false, {"b.hip", "other.txt", "missing.hip"}},
    {"folder_by_filter_and_name", {"."}, false, {"./B.hip", "./a.hipnc", "./b.hip", "./gone.hip"}},
    {"between_files", {"other.txt", "shots", "b.hip"}, false, {"other.txt", "shots/s.hip", "b.hip"}},
    {"folders_below", {"shots"}, true, {"shots/s.hip", "shots/backup/t.hip", "shots/z.hip/u.hip"}},
    {"links_at_the_end_and_no_loop",
     {"."},
     true,
     {"./B.hip", "./a.hipnc", "./b.hip", "./gone.hip", "./deep/er/y.hip", "./shots/s.hip", "./shots/backup/t.hip",
      "./shots/z.hip/u.hip", "./again/v.hip"}},
    {"linked_folder_by_its_name", {"aLink"}, true, {"aLink/s.hip", "aLink/backup/t.hip", "aLink/z.hip/u.hip"}},
    {"twice_where_named_twice", {"shots", "shots/"}, false, {"shots/s.hip", "shots/s.hip"}},
    {"folder_without_scenes", {"none", "b.hip"}, true, {"!none", "b.hip"}},
    {"scenes_only_below", {"deep", "b.hip"}, false, {"!deep", "b.hip"}},
};

class SceneList : public testing::TestWithParam<_found> {
 protected:
    SceneList() {
        for (const auto* folder : {"shots/backup", "shots/z.hip", "none/.hidden", "deep/er"})
            fs::create_directories(root / folder);
        fs::create_directories(elsewhere);
        for (const auto* file : {"b.hip", "B.hip", "a.hipnc", "other.txt", "C.HIP", "hip", ".hidden.hip", "shots/s.hip",
                                 "shots/backup/t.hip", "shots/z.hip/u.hip", "none/.hidden/x.hip", "deep/er/y.hip"}) {
            std::ofstream{root / file};
        }
        std::ofstream{elsewhere / "v.hip"};
        fs::create_symlink("nowhere", root / "gone.hip");
        fs::create_directory_symlink("shots", root / "aLink");
        fs::create_directory_symlink("..", root / "shots/loop");
        fs::create_directory_symlink(elsewhere, root / "again");
        fs::current_path(root);
    }
    ~SceneList() override {
        fs::current_path(before);
        fs::remove_all(root);
        fs::remove_all(elsewhere);
    }

    fs::path before = fs::current_path();
    fs::path root = fs::canonical(fs::temp_directory_path()) / ("sceneList_test" + std::to_string(getpid()));
    fs::path elsewhere = root.native() + "_elsewhere";
};

TEST_P(SceneList, FindsScenesInOrder) {
    vxH::_sceneList scenes{GetParam().names, GetParam().recursive, QStringLiteral("*.hip;*.hipnc;")};
    while (scenes.readOn()) continue;
    EXPECT_TRUE(scenes.isComplete());
    _texts entries;
    while (!scenes.ahead().empty()) {
        const auto entry = scenes.take();
        const auto problem = vxTest::plain(entry.problem);
        entries.push_back(problem.empty() ? entry.path : "!" + problem.substr(0, problem.find(':')));
    }
    EXPECT_EQ(entries, GetParam().entries);
}

/// Also of numbers that are all even, which many schemes of shots have.
TEST(Shard, PartsAreTheWholeAndAboutEqual) {
    constexpr int scenes = 2000;
    for (const int count : {1, 2, 7, 64}) {
        std::vector<int> sizes(static_cast<std::size_t>(count));
        for (int scene = 0; scene < scenes; ++scene) {
            const auto path = "/projects/sh" + std::to_string(20 * scene) + ".hip";
            int holders = 0;
            for (int number = 1; number <= count; ++number) {
                if (!vxH::_shard{number, count}.holds(path)) continue;
                ++holders;
                ++sizes[static_cast<std::size_t>(number) - 1];
            }
            EXPECT_EQ(holders, 1);
        }
        const auto [least, most] = std::minmax_element(sizes.begin(), sizes.end());
        EXPECT_GT(*least, scenes / count / 3);
        EXPECT_LT(*most, 2 * scenes / count + 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, SceneList, testing::ValuesIn(foundTable), vxTest::rowName);

}  // namespace
