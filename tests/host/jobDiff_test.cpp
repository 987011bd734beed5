// Which jobs are the same ones, and what of their differences is shown.
#include <gtest/gtest.h>

#include "host/diff/comparison.h"
#include "host/results/jobWaits.h"
#include "host/text/jobDiffText.h"
#include "tests/testText.h"

namespace {

using namespace vxH;

constexpr const char* oldScene = "/p/v1/shot_v1.hip";
constexpr const char* newScene = "/p/v2/shot_v2.hip";

struct _made {
    const char* driver;
    const char* renderer;
    const char* take;
    const char* file;
    int waitsFor = 0;  // number from 1; 0: for none
    void (*change)(_job&) = [](_job&) {};
};

/// The jobs numbered as the plug-in does, in 8 bits.
_sceneResult sceneWith(const char* path, const std::vector<_made>& jobs) {
    _sceneResult scene{{QString::fromUtf8(path), 1, {}, {}}, {}};
    for (const auto& made : jobs) {
        auto& job = scene.jobs.emplace_back();
        job.layer = QString::fromUtf8(made.driver);
        job.app = QString::fromUtf8(made.renderer);
        job.channel = QString::fromUtf8(made.take);
        job.imageFileName = QString::fromUtf8(made.file);
        job.seqStart = job.seqEnd = job.seqStep = 1;
        job.preID = static_cast<int>(scene.jobs.size()) % 256;
        if (made.waitsFor > 0) job.waitForPreIDs = {made.waitsFor % 256};
        made.change(job);
    }
    findWaits(scene.jobs);
    return scene;
}

_jobDiff differences(const _sceneResult& before, const _sceneResult& now, _compared compared = _compared::jobs) {
    return diffJobs(_comparable{before}, _comparable{now}, compared);
}

/// Lines of the difference, joined by "|".
std::string linesOf(const _sceneResult& before, const _sceneResult& now) {
    return diffLines(differences(before, now), before, now, {}).join(QLatin1Char('|')).toStdString();
}

struct _case {
    const char* what;
    std::vector<_made> before;
    std::vector<_made> now;
    const char* lines;
};

const _case cases[] = {
    {"another_output_and_order",
     {{"/out/a", "gl", "", "a."}, {"/out/b", "gl", "", "b."}},
     {{"/out/b", "gl", "", "c."}, {"/out/a", "gl", "", "a."}},
     "changed 1 (was 2)  /out/b  gl|    imageFileName: b. -> c.|0 came, 0 went, 1 changed, 1 unchanged"},
    {"another_name_is_another_driver",
     {{"/out/a", "gl", "", "a."}},
     {{"/out/b", "gl", "", "a."}},
     "came    1  /out/b  gl  1  a.|went    1  /out/a  gl  1  a.|1 came, 1 went, 0 changed, 0 unchanged"},
    {"renderers_of_an_export_and_its_render_job",
     {{"/out/a", "createIFD", "Main", "a.ifd"}, {"/out/a", "Mantra", "Main", "a.exr", 1}},
     {{"/out/a", "createAss", "Main", "b.ass"}, {"/out/a", "Arnold", "Main", "b.exr", 1}},
     "changed 1  /out/a  createAss  Main|    app: createIFD -> createAss|    imageFileName: a.ifd -> b.ass|"
     "changed 2  /out/a  Arnold  Main|    app: Mantra -> Arnold|    imageFileName: a.exr -> b.exr|"
     "0 came, 0 went, 2 changed, 0 unchanged"},
    {"export_put_before_a_direct_render_job",
     {{"/out/a", "ifd", "Main", "a.exr"}},
     {{"/out/a", "createIFD", "Main", "a.ifd"}, {"/out/a", "Mantra", "Main", "a.exr", 1}},
     "came    1  /out/a  createIFD  Main  1  a.ifd|changed 2 (was 1)  /out/a  Mantra  Main|    app: ifd -> Mantra|"
     "    waitForPreIDs: none -> 1 /out/a|1 came, 0 went, 1 changed, 0 unchanged"},
    {"no_guess_among_several_takes",
     {{"/out/a", "gl", "x", "a."}, {"/out/a", "gl", "y", "a."}},
     {{"/out/a", "gl", "y", "a."}, {"/out/a", "gl", "z", "a."}, {"/out/a", "gl", "w", "a."}},
     "came    2  /out/a  gl  z  1  a.|came    3  /out/a  gl  w  1  a.|went    1  /out/a  gl  x  1  a.|"
     "2 came, 1 went, 0 changed, 1 unchanged"},
    {"the_only_other_take",
     {{"/out/a", "gl", "x", "a."}, {"/out/a", "gl", "y", "a."}},
     {{"/out/a", "gl", "y", "a."}, {"/out/a", "gl", "z", "a."}},
     "changed 2 (was 1)  /out/a  gl  z|    channel: x -> z|0 came, 0 went, 1 changed, 1 unchanged"},
    {"wedge_variant_put_between",
     {{"/out/w", "gl", "", "key_2."}, {"/out/w", "gl", "", "key_6."}},
     {{"/out/w", "gl", "", "key_2."}, {"/out/w", "gl", "", "key_4."}, {"/out/w", "gl", "", "key_6."}},
     "came    2  /out/w  gl  1  key_4.|1 came, 0 went, 0 changed, 2 unchanged"},
    {"wedge_into_another_folder_with_a_variant_less",
     {{"/out/w", "gl", "", "key_2."}, {"/out/w", "gl", "", "key_4."}},
     {{"/out/w", "gl", "", "key_4.", 0, [](_job& job) { job.imageDir = QStringLiteral("/new/"); }}},
     "changed 1 (was 2)  /out/w  gl|    imageDir: \"\" -> /new/|went    1  /out/w  gl  1  key_2.|"
     "0 came, 1 went, 1 changed, 0 unchanged"},
    {"waits_for_another_job",
     {{"/out/a", "x", "", ""}, {"/out/b", "x", "", ""}, {"/out/c", "x", "", "", 2}, {"/out/d", "x", "", "", 90}},
     {{"/out/b", "x", "", ""}, {"/out/a", "x", "", ""}, {"/out/c", "x", "", "", 2}, {"/out/d", "x", "", "", 91}},
     "changed 3  /out/c  x|    waitForPreIDs: 2 /out/b -> 2 /out/a|changed 4  /out/d  x|"
     "    waitForPreIDs: id 90 -> id 91|0 came, 0 went, 2 changed, 2 unchanged"},
    {"frames_on_one_line_and_what_they_hide",
     {{"/out/a", "x", "", "", 0, [](_job& job) { job.seqEnd = 9; }},
      {"/out/b", "x", "", "", 0, [](_job& job) { job.seqFrameSet = QStringLiteral("7"); }}},
     {{"/out/a", "x", "", "", 0, [](_job& job) { job.seqStart = 0; }},
      {"/out/b", "x", "", "", 0,
       [](_job& job) {
           job.seqFrameSet = QStringLiteral("7");
           job.seqEnd = 2;
       }}},
     "changed 1  /out/a  x|    frames: 1-9 -> 0-1|changed 2  /out/b  x|    seqEnd: 1 -> 2|"
     "0 came, 0 went, 2 changed, 0 unchanged"},
    {"entries_of_lists_and_hostile_texts",
     {{"/out/\x1b[1m", "x", "", "", 0,
       [](_job& job) {
           job.structureIDs = {1, 7};
       }}},
     {{"/out/\x1b[1m", "x", "", "\n", 0, [](_job& job) { job.structureIDs = {1}; }}},
     "changed 1  /out/?[1m  x|    imageFileName: \"\" -> ?|    structureIDs: [7] -> []|"
     "0 came, 0 went, 1 changed, 0 unchanged"},
};

class JobDiff : public testing::TestWithParam<_case> {};

TEST_P(JobDiff, ShowsWhatAWranglerWouldCallADifference) {
    const auto& [what, before, now, lines] = GetParam();
    EXPECT_EQ(linesOf(sceneWith(oldScene, before), sceneWith(newScene, now)), lines);
}

INSTANTIATE_TEST_SUITE_P(Table, JobDiff, testing::ValuesIn(cases), vxTest::rowName);

TEST(JobDiff, JobPutBeforeManyShiftsNumbersAndNothingElse) {
    std::vector<_made> before;  // exports, then the jobs that wait for them: more than own numbers can tell apart
    for (int i = 0; i < 300; ++i) before.push_back({"/out/a", "createIFD", "", "a."});
    for (int i = 0; i < 300; ++i) before.push_back({"/out/a", "Mantra", "", "a.", i + 1});
    auto now = before;
    for (auto& job : now)
        if (job.waitsFor > 0) ++job.waitsFor;
    now.insert(now.begin(), {"/out/first", "gl", "", "f."});
    EXPECT_EQ(linesOf(sceneWith(oldScene, before), sceneWith(newScene, now)),
              "came    1  /out/first  gl  1  f.|1 came, 0 went, 0 changed, 600 unchanged");
}

TEST(JobDiff, LeavesOutWhatTheScenesOwnPathsExplain) {
    struct _row {
        QString _job::*field;
        const char* before;
        const char* now;
        bool isShown;
    };
    const _row rows[] = {
        {&_job::sceneName, "/p/v1/shot_v1.hip", "/p/v2/shot_v2.hip", false},
        {&_job::sceneName, "<Database>ifd/shot_v1_beauty.<FN4>.ifd", "<Database>ifd/shot_v2_beauty.<FN4>.ifd", false},
        {&_job::sceneDatabaseDir, "/p/v1/", "/p/v2/", false},
        {&_job::imageDir, "/p/v1", "/p/v2", false},
        {&_job::imageDir, "/p/v1/r/", "/p/v2/s/", true},
        {&_job::imageDir, "/p/v1_r/", "/p/v2_r/", true},
        {&_job::imageDir, "/q/p/v1/", "/q/p/v2/", true},
        {&_job::imageDir, "/p/v1/r/", "/p/v1/r/", false},
        {&_job::imageFileName, "shot_v1.", "shot_v2.", false},
        {&_job::imageFileName, "shot_v1.", "shot_v1.beauty.", true},
        {&_job::imageFileName, "shot_v10.", "shot_v20.", true},
        {&_job::camera, "/obj/shot_v1", "/obj/shot_v2", true}};
    for (const auto& [field, before, now, isShown] : rows) {
        SCOPED_TRACE(before);
        const auto sceneOf = [name = field](const char* path, const char* value) {
            auto scene = sceneWith(path, {{"/out/a", "x", "", ""}, {"/out/b", "x", "", ""}});
            scene.jobs[0].*name = QString::fromUtf8(value);
            scene.jobs[1].customData = {{QStringLiteral("name"), QString::fromUtf8(value)}};
            return scene;
        };
        const auto a = sceneOf(oldScene, before);
        const auto b = sceneOf(newScene, now);
        const std::size_t shown = field == &_job::camera ? 1 : 2;  // the list holds paths, too
        EXPECT_EQ(differences(a, b).differences.size(), isShown ? shown : 0);
        EXPECT_EQ(differences(a, b, _compared::everyField).differences.size(),
                  vxTest::plain(a.jobs[0].*field) == now ? 0 : 2);
    }
}

}  // namespace
