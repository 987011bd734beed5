// Which jobs are the same ones, and what of their differences is shown.
#include "host/diff/jobDiff.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include "host/results/sceneResult.h"
#include "host/text/jobDiffText.h"
#include "tests/testText.h"

namespace {

using namespace vxH;

constexpr const char* oldScene = "/p/v1/shot_v1.hip";
constexpr const char* newScene = "/p/v2/shot_v2.hip";

struct _job {
    const char* driver;
    const char* renderer;
    const char* take;
    const char* file;
    int waitsFor = 0;  // number from 1; 0: for none
    QJsonObject more = {};
};

/// The jobs numbered as the plug-in does, in 8 bits.
QJsonObject sceneWith(const char* path, const std::vector<_job>& jobs) {
    const auto text = [](const char* utf8) { return QJsonValue{QString::fromUtf8(utf8)}; };
    QJsonArray list;
    for (const auto& job : jobs) {
        QJsonArray waits;
        if (job.waitsFor > 0) waits.append(job.waitsFor % 256);
        QJsonObject object{{QLatin1String{"layer"}, text(job.driver)},
                           {QLatin1String{"app"}, text(job.renderer)},
                           {QLatin1String{"channel"}, text(job.take)},
                           {QLatin1String{"imageDir"}, QString{}},
                           {QLatin1String{"imageFileName"}, text(job.file)},
                           {QLatin1String{"seqStart"}, 1},
                           {QLatin1String{"seqEnd"}, 1},
                           {QLatin1String{"seqStep"}, 1},
                           {QLatin1String{"preID"}, static_cast<int>(list.size() + 1) % 256},
                           {QLatin1String{"waitForPreIDs"}, waits}};
        for (auto member = job.more.begin(); member != job.more.end(); ++member) object[member.key()] = *member;
        list.append(object);
    }
    return {{sceneKey, text(path)}, {jobsKey, list}};
}

/// Lines of the difference, joined by "|".
std::string linesOf(const QJsonObject& before, const QJsonObject& now, _compared compared = _compared::jobs) {
    return diffLines(diffJobs(before, now, compared), before, now, {}).join(QLatin1Char('|')).toStdString();
}

struct _case {
    const char* what;
    std::vector<_job> before;
    std::vector<_job> now;
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
     {{"/out/w", "gl", "", "key_4.", 0, {{QLatin1String{"imageDir"}, QLatin1String{"/new/"}}}}},
     "changed 1 (was 2)  /out/w  gl|    imageDir: \"\" -> /new/|went    1  /out/w  gl  1  key_2.|"
     "0 came, 1 went, 1 changed, 0 unchanged"},
    {"waits_for_another_job",
     {{"/out/a", "x", "", ""}, {"/out/b", "x", "", ""}, {"/out/c", "x", "", "", 2}, {"/out/d", "x", "", "", 90}},
     {{"/out/b", "x", "", ""}, {"/out/a", "x", "", ""}, {"/out/c", "x", "", "", 2}, {"/out/d", "x", "", "", 91}},
     "changed 3  /out/c  x|    waitForPreIDs: 2 /out/b -> 2 /out/a|changed 4  /out/d  x|"
     "    waitForPreIDs: id 90 -> id 91|0 came, 0 went, 2 changed, 2 unchanged"},
    {"frames_on_one_line_and_what_they_hide",
     {{"/out/a", "x", "", "", 0, {{QLatin1String{"seqStart"}, 1}, {QLatin1String{"seqEnd"}, 9}}},
      {"/out/b", "x", "", "", 0, {{QLatin1String{"seqFrameSet"}, QLatin1String{"7"}}, {QLatin1String{"seqEnd"}, 1}}}},
     {{"/out/a", "x", "", "", 0, {{QLatin1String{"seqStart"}, 2}, {QLatin1String{"seqEnd"}, 8}}},
      {"/out/b", "x", "", "", 0, {{QLatin1String{"seqFrameSet"}, QLatin1String{"7"}}, {QLatin1String{"seqEnd"}, 2}}}},
     "changed 1  /out/a  x|    frames: 1-9 -> 2-8|changed 2  /out/b  x|    seqEnd: 1 -> 2|"
     "0 came, 0 went, 2 changed, 0 unchanged"},
    {"entries_of_lists_and_hostile_texts",
     {{"/out/\x1b[1m", "x", "", "", 0, {{QLatin1String{"channels"}, QJsonArray{1, QLatin1String{"\x1b"}}}}}},
     {{"/out/\x1b[1m", "x", "", "\n", 0, {{QLatin1String{"channels"}, QJsonArray{1}}}}},
     "changed 1  /out/?[1m  x|    channels: [\"\\u001b\"] -> []|    imageFileName: \"\" -> ?|"
     "0 came, 0 went, 1 changed, 0 unchanged"},
};

class JobDiff : public testing::TestWithParam<_case> {};

TEST_P(JobDiff, ShowsWhatAWranglerWouldCallADifference) {
    const auto& [what, before, now, lines] = GetParam();
    EXPECT_EQ(linesOf(sceneWith(oldScene, before), sceneWith(newScene, now)), lines);
}

INSTANTIATE_TEST_SUITE_P(Table, JobDiff, testing::ValuesIn(cases), vxTest::rowName);

TEST(JobDiff, AsJsonHoldsWholeJobsAndFieldsThatChanged) {
    const auto before = sceneWith(oldScene, {{"/out/a", "x", "", "a."}, {"/out/b", "x", "", "b."}});
    const auto now =
        sceneWith(newScene, {{"/out/c", "x", "", "c."}, {"/out/d", "x", "", ""}, {"/out/b", "x", "", "n."}});
    const auto json = diffToJson(diffJobs(before, now, _compared::jobs), before, now);
    const auto expected = QJsonDocument::fromJson(R"({"old": "/p/v1/shot_v1.hip",
        "new": "/p/v2/shot_v2.hip", "unchanged": 0, "changed": [{"driver": "/out/b", "oldNumber": 2, "newNumber": 3,
        "fields": [{"name": "imageFileName", "old": "b.", "new": "n."}]}]})");
    auto rest = json;
    rest.remove(QLatin1String{"came"});
    rest.remove(QLatin1String{"went"});
    EXPECT_EQ(QJsonDocument(rest).toJson().toStdString(), expected.toJson().toStdString());
    EXPECT_EQ(json[QLatin1String{"came"}].toArray(), (QJsonArray{jobNumbered(now, 1), jobNumbered(now, 2)}));
    EXPECT_EQ(json[QLatin1String{"went"}].toArray(), (QJsonArray{jobNumbered(before, 1)}));
}

TEST(JobDiff, JobPutBeforeManyShiftsNumbersAndNothingElse) {
    std::vector<_job> before;  // exports, then the jobs that wait for them: more than own numbers can tell apart
    for (int i = 0; i < 300; ++i) before.push_back({"/out/a", "createIFD", "", "a."});
    for (int i = 0; i < 300; ++i) before.push_back({"/out/a", "Mantra", "", "a.", i + 1});
    auto now = before;
    for (auto& job : now)
        if (job.waitsFor > 0) ++job.waitsFor;
    now.insert(now.begin(), {"/out/first", "gl", "", "f."});
    EXPECT_EQ(linesOf(sceneWith(oldScene, before), sceneWith(newScene, now)),
              "came    1  /out/first  gl  1  f.|1 came, 0 went, 0 changed, 600 unchanged");
}

TEST(JobDiff, ColourChangesNoText) {
    const auto before = sceneWith(oldScene, {{"/out/a", "x", "", "a."}, {"/out/b", "x", "", "b."}});
    const auto now = sceneWith(newScene, {{"/out/a", "x", "", "n."}, {"/out/c", "x", "", "c."}});
    const auto diff = diffJobs(before, now, _compared::jobs);
    auto coloured = diffLines(diff, before, now, {0, true});
    for (const auto& line : coloured.mid(0, 4)) EXPECT_EQ(line.contains(QChar{0x1b}), !line.startsWith(QChar{u' '}));
    coloured.replaceInStrings(QRegularExpression{QStringLiteral("\x1b\\[[0-9;]*m")}, QString{});
    EXPECT_EQ(coloured, diffLines(diff, before, now, {}));
}

TEST(JobDiff, LeavesOutWhatTheScenesOwnPathsExplain) {
    struct _row {
        const char* field;
        const char* before;
        const char* now;
        bool isShown;
    };
    const _row rows[] = {
        {"sceneName", "/p/v1/shot_v1.hip", "/p/v2/shot_v2.hip", false},
        {"sceneName", "<Database>ifd/shot_v1_beauty.<FN4>.ifd", "<Database>ifd/shot_v2_beauty.<FN4>.ifd", false},
        {"sceneDatabaseDir", "/p/v1/", "/p/v2/", false},
        {"imageDir", "/p/v1", "/p/v2", false},
        {"imageDir", "/p/v1/r/", "/p/v2/s/", true},
        {"imageDir", "/p/v1_r/", "/p/v2_r/", true},
        {"imageDir", "/q/p/v1/", "/q/p/v2/", true},
        {"imageDir", "<Database>v1/", "<Database>v2/", true},
        {"imageFileName", "shot_v1.", "shot_v2.", false},
        {"imageFileName", "shot_v1.", "shot_v1.beauty.", true},
        {"imageFileName", "shot_v10.", "shot_v20.", true},
        {"camera", "/obj/shot_v1", "/obj/shot_v2", true}};
    for (const auto& [field, before, now, isShown] : rows) {
        SCOPED_TRACE(std::string{field} + " " + before);
        const auto sceneOf = [name = QLatin1String{field}](const char* path, const char* value) {
            const QJsonArray inList{QJsonObject{{QLatin1String{"value"}, QString::fromUtf8(value)}}};
            return sceneWith(path, {{"/out/a", "x", "", "", 0, {{name, QString::fromUtf8(value)}}},
                                    {"/out/b", "x", "", "", 0, {{QLatin1String{"customData"}, inList}}}});
        };
        const auto a = sceneOf(oldScene, before);
        const auto b = sceneOf(newScene, now);
        const bool isPath = field != std::string{"camera"};
        EXPECT_EQ(diffJobs(a, b, _compared::jobs).differences.size(), isShown ? (isPath ? 2U : 1U) : 0U);
        EXPECT_EQ(diffJobs(a, b, _compared::everyField).differences.size(), 2U);
    }
}

}  // namespace
