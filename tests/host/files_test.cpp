// The files that jobs leave, what of them is on the disk, and how frames are folded.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "host/files/filesText.h"
#include "host/files/framesLeft.h"
#include "tests/testText.h"

namespace {

namespace fs = std::filesystem;
using namespace vxH;

struct _folding {
    const char* what;
    _frameRange range;
    std::vector<_frameRun> runs;
    const char* text;
};
const _folding foldings[] = {
    {"none", {1, 9, 1}, {}, ""},
    {"as_wranglers_write",
     {1001, 1100, 1},
     {{0, 39}, {41, 41}, {49, 49}, {54, 54}, {59, 59}},
     "1001-1040,1042,1050-1060x5"},
    {"two_in_a_row", {1, 9, 1}, {{0, 1}, {3, 3}, {5, 5}}, "1-2,4,6"},
    {"steps", {10, 100, 10}, {{0, 1}, {4, 6}, {8, 8}}, "10,20,50-70x10,90"},
    {"every_other_of_steps", {0, 100, 10}, {{0, 0}, {2, 2}, {4, 4}, {10, 10}}, "0-40x20,100"},
    {"negative", {-5, 5, 1}, {{0, 3}, {7, 7}}, "-5--2,2"},
    {"no_memory_by_frames", {1, 1'000'000'000'000, 1}, {{0, 999'999'999'999}}, "1-1000000000000"},
};
class FoldedFrames : public testing::TestWithParam<_folding> {};
TEST_P(FoldedFrames, AreWrittenAsRanges) {
    EXPECT_EQ(vxTest::plain(frameListText(foldedFrames(GetParam().range, GetParam().runs))), GetParam().text);
}
INSTANTIATE_TEST_SUITE_P(Table, FoldedFrames, testing::ValuesIn(foldings), vxTest::rowName);

_job jobNamed(const char* folder, const char* name, const char* extension = ".exr") {
    _job job;
    job.imageDir = QString::fromUtf8(folder);
    job.imageFileName = QString::fromUtf8(name);
    job.imageExtension = QString::fromUtf8(extension);
    job.imagePadding = 4;
    job.seqStart = 1;
    job.seqEnd = 5;
    job.seqStep = 1;
    return job;
}

void useOneFile(_job& job) {
    job.imageSingleOutputFile = true;
}

/// What a job's record says, and the line of each set of files behind "1 " and the count.
struct _naming {
    const char* what;
    _job job;
    void (*change)(_job& job);
    const char* lines;
};
const _naming namings[] = {
    {"frames", jobNamed("/r/", "a."), nullptr, "5  /r/a.####.exr 1-5\n"},
    {"in_the_scenes_folder", jobNamed("<SceneFolder>../r/", "a."), nullptr, "5  /p/r/a.####.exr 1-5\n"},
    {"odd_padding", jobNamed("/r/", "a"), [](_job& job) { job.imagePadding = 1; }, "5  /r/a#.exr 1-5\n"},
    {"one_file", jobNamed("/r/", "a.mov", ""), useOneFile, "1  /r/a.mov (one file)\n"},
    {"overwritten", jobNamed("/r/", "a.exr", ""), useOneFile, "1  /r/a.exr (every frame overwrites this file: 1-5)\n"},
    {"take", jobNamed("/r/<Channel>/", "a."), [](_job& job) { job.channel = QStringLiteral("t"); },
     "5  /r/t/a.####.exr 1-5\n"},
    {"sides_and_channels", jobNamed("/r/", "a.<Stereo>"),
     [](_job& job) {
         job.imageStereoL = QStringLiteral("_l");
         job.imageStereoR = QStringLiteral("_r");
         job.channels.push_back({0, QStringLiteral("<SceneFolder>d."), QStringLiteral(".tif")});
     },
     "5  /r/a._l####.exr 1-5\n5  /r/a._r####.exr 1-5\n5  /p/s/d.####.tif 1-5\n"},
    {"unknown_take", jobNamed("/r/", "<Channel>."), nullptr,
     "?  /r/<Channel>.####.exr unknown: the take is not known\n"},
    {"unknown_aov", jobNamed("/r/", "a.<ValueVar @$AOV.>"), nullptr,
     "?  /r/a.<ValueVar @$AOV.>####.exr unknown: the AOVs are not known\n"},
    {"unknown_variable", jobNamed("/$SHOW/", "a."), nullptr,
     "?  /$SHOW/a.####.exr unknown: a variable that the scene does not define\n"},
    {"other_system", jobNamed("P:/r/", "a."), nullptr,
     "?  P:/r/a.####.exr unknown: a path of another system, or a relative one\n"},
    {"number_in_folder", jobNamed("/r/", "<Channel>/", "/a.exr"), [](_job& job) { job.channel = QStringLiteral("t"); },
     "?  /r/t/####/a.exr unknown: the frame number is in the name of a folder\n"},
    {"fractions", jobNamed("/r/", "a."), [](_job& job) { job.seqStart = 0.5; },
     "?  /r/a.####.exr unknown: the frames are not known, or are no whole numbers\n"},
};
class OutputFiles : public testing::TestWithParam<_naming> {};
TEST_P(OutputFiles, AreNamedOrSaidToBeUnknown) {
    _explainedScene scene;
    scene.code = 1;
    scene.scene = QStringLiteral("/p/s/a.hip");
    scene.jobs = {GetParam().job};
    if (GetParam().change != nullptr) GetParam().change(scene.jobs.front());
    const auto text = vxTest::plain(filesText(sceneFilesOf(scene, std::nullopt)));
    std::string lines;
    for (std::size_t at = text.find('\n') + 1; at < text.size(); at = text.find('\n', at) + 1)
        lines += text.substr(text.find_first_not_of(' ', at + 5),
                             text.find('\n', at) + 1 - text.find_first_not_of(' ', at + 5));
    EXPECT_EQ(lines, GetParam().lines);
}
INSTANTIATE_TEST_SUITE_P(Table, OutputFiles, testing::ValuesIn(namings), vxTest::rowName);

/// A folder that holds what a farm has left of frames 1 to 40 in steps of 3, and of others.
class DiskState : public testing::Test {
 protected:
    DiskState() {
        fs::create_directories(root / "a.0031.exr");
        for (int frame = 1; frame <= 40; ++frame) write(frame, 4, 1000);
        for (const int frame : {4, 10, 13}) fs::remove(nameOf(frame, 4));
        write(10, 5, 1000);  // digits that nobody asked for
        write(16, 4, 0);
        write(19, 4, 249);
        write(22, 4, 250);
        fs::last_write_time(nameOf(25, 4), fs::file_time_type::clock::now() - std::chrono::hours{48});
        fs::create_symlink("nowhere", root / "a.0013.exr");
    }
    ~DiskState() override { fs::remove_all(root); }

    fs::path nameOf(int frame, int digits) const {
        const auto number = std::to_string(frame);
        return root / ("a." + std::string(static_cast<std::size_t>(digits) - number.size(), '0') + number + ".exr");
    }
    void write(int frame, int digits, std::size_t bytes) const {
        if (!fs::is_directory(nameOf(frame, digits))) std::ofstream{nameOf(frame, digits)} << std::string(bytes, 'x');
    }

    _explainedScene sceneOf(const std::vector<std::string>& folders) const {
        _explainedScene scene;
        scene.code = 1;
        for (const auto& folder : folders) {
            auto& job = scene.jobs.emplace_back(jobNamed((root.native() + folder).c_str(), "a."));
            job.seqEnd = 40;
            job.seqStep = 3;
        }
        return scene;
    }

    static _diskQuestion sinceYesterday() { return {true, timespec{time(nullptr) - 86400, 0}}; }

    fs::path root = fs::canonical(fs::temp_directory_path()) / ("files_test" + std::to_string(getpid()));
};

TEST_F(DiskState, TellsEveryFaultAndFoldersThatAreMissing) {
    const auto scene = sceneFilesOf(sceneOf({"/", "/none/", "/none/", "/a.0001.exr/"}), sinceYesterday());
    auto text = vxTest::plain(filesText(scene));
    for (auto at = text.find(root.native()); at != std::string::npos; at = text.find(root.native()))
        text.erase(at, root.native().size());
    EXPECT_EQ(text,
              ": 4 jobs, 7 of 42 files there\n"
              "    1  absent          4  /a.####.exr 4,10,13,31\n"
              "    1  empty           1  /a.####.exr 16\n"
              "    1  short           1  /a.####.exr 19\n"
              "    1  older           1  /a.####.exr 25\n"
              "    2  folder         28  /none/ is not there: jobs 2-3\n"
              "    4  folder         14  /a.0001.exr/ is not there: job 4\n");
    EXPECT_TRUE(scene.isMissing());
}

TEST_F(DiskState, LeavesTheFramesOfWhichAFileIsMissing) {
    auto scene = sceneOf({"/", "/"});
    scene.jobs[0].channels.push_back(
        {0, QString::fromStdString(root.native()) + QStringLiteral("/a."), QStringLiteral(".exr")});
    scene.jobs[0].channels.push_back(
        {1, QString::fromStdString(root.native()) + QStringLiteral("/b.<x>"), QStringLiteral(".exr")});
    scene.jobs[1].imageFileName = QStringLiteral("<x>");
    const auto left = framesLeft(scene, sinceYesterday());
    ASSERT_EQ(left.size(), 2U);
    EXPECT_EQ(vxTest::plain(frameListText(left[0].frames)), "4,10-19x3,25,31");
    EXPECT_FALSE(left[1].unknown.isEmpty());
    const auto byNames = framesLeft(scene, {false, std::nullopt});
    EXPECT_EQ(vxTest::plain(frameListText(byNames[0].frames)), "4,10,13,31");
}

}  // namespace
