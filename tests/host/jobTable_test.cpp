// Cells, elision and widths of the job table.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

#include "host/displayText.h"
#include "host/jobCells.h"
#include "host/jobTable.h"
#include "host/sceneLoad.h"

namespace {

using namespace vxH;

QJsonObject sceneWith(const QJsonArray& jobs) {
    return {{sceneKey, QStringLiteral("/projects/a/scene.hip")}, {codeKey, 1}, {jobsKey, jobs}};
}

QJsonObject fromText(const char* json) {
    return QJsonDocument::fromJson(json).object();
}

struct _cell {
    const char *what, *job, *frames, *output;
};
constexpr _cell cells[] = {
    {"scene_folder", R"({"seqStart":1,"seqEnd":5,"seqStep":1,"imageDir":"<SceneFolder>r/","imageFileName":"a.",
      "imagePadding":4,"imageExtension":".exr"})",
     "1-5", "/projects/a/r/a.####.exr"},
    {"above_scene_folder", R"({"seqStart":1,"seqEnd":5,"seqStep":2,"imageDir":"<SceneFolder>../<Channel>/",
      "imageFileName":"a.","imagePadding":1,"imageExtension":".exr","channel":"night"})",
     "1-5 x2", "/projects/night/a.#.exr"},
    {"not_above_the_root", R"({"seqStart":3,"seqEnd":3,"seqStep":2,"imageDir":"<SceneFolder>../../../r/",
      "imageFileName":"a","imagePadding":0,"imageExtension":""})",
     "3", "/../r/a"},
    {"database", R"({"seqStart":1.5,"seqEnd":2000000,"seqStep":1,"imageDir":"<Database>/r/",
      "sceneDatabaseDir":"/db","imageFileName":"<Channel>.","imagePadding":2,"imageExtension":".tif","channel":""})",
     "1.5-2000000", "/db/r/<Channel>.##.tif"},
    {"one_file", R"({"seqStart":-5,"seqEnd":5,"seqStep":1,"imageDir":"/r/","imageFileName":"a.mov",
      "imagePadding":4,"imageSingleOutputFile":true})",
     "-5 to 5", "/r/a.mov"},
    {"no_output", R"({"seqStart":null,"seqEnd":2,"seqStep":1,"imagePadding":4})", "?-2", ""},
    {"frame_set", R"({"seqStart":1,"seqEnd":2,"seqStep":1,"seqFrameSet":"1,9"})", "1,9", ""},
};

class JobCells : public testing::TestWithParam<_cell> {};

TEST_P(JobCells, SayFramesAndOutput) {
    const auto job = fromText(GetParam().job);
    EXPECT_EQ(framesCell(job), QLatin1String{GetParam().frames});
    EXPECT_EQ(outputCell(job, _cellScene{sceneWith({job})}), QLatin1String{GetParam().output});
}

INSTANTIATE_TEST_SUITE_P(Table, JobCells, testing::ValuesIn(cells), vxTest::rowName);

TEST(JobCells, WaitedForJobsAreNumberedAsLongAsTheirOwnNumbersAreUnique) {
    QJsonArray jobs;
    for (int i = 1; i <= 257; ++i) jobs.append(QJsonObject{{QLatin1String{"preID"}, i % 256}});
    const _cellScene scene{sceneWith(jobs)};
    EXPECT_EQ(waitsForCell(fromText(R"({"waitForPreIDs":[2, 0]})"), scene), QLatin1String{"2, 256"});
    EXPECT_EQ(waitsForCell(fromText(R"({"waitForPreIDs":[1]})"), scene), QLatin1String{"id 1"});
}

struct _elision {
    const char *what, *path;
    int columns;
    const char* elided;
};
constexpr _elision elisions[] = {
    {"fits", "/a/b.exr", 8, "/a/b.exr"},
    {"file_name_stays", "/projects/shot/b.exr", 14, "/proj.../b.exr"},
    {"backslashes", "D:\\projects\\b.exr", 11, "D:...\\b.exr"},
    {"file_name_cut_at_its_start", "/a/beautyBeauty.exr", 10, "...uty.exr"},
    {"hardly_any_room", "/a/b.exr", 3, "exr"},
    {"wide_characters", "/夜夜夜夜/夜.exr", 13, "/夜.../夜.exr"},
    {"outside_the_base_plane", "/\U0001F600\U0001F600\U0001F600/a", 8, "/\U0001F600.../a"},
};

class ElidePath : public testing::TestWithParam<_elision> {
 protected:
    ElidePath() { useUtf8Characters(); }  // widths follow the character set
};

TEST_P(ElidePath, KeepsTheFileName) {
    const auto elided = elidePath(QString::fromUtf8(GetParam().path), GetParam().columns);
    EXPECT_EQ(elided.toStdString(), GetParam().elided);
}

INSTANTIATE_TEST_SUITE_P(Table, ElidePath, testing::ValuesIn(elisions), vxTest::rowName);

TEST(JobTable, FitsEveryWidthAndKeepsTheDriver) {
    useUtf8Characters();
    const auto job = fromText(R"({"layer":"out/夜/mantra","app":"Houdini","appRenderer":"createIFD","seqStart":1001,
        "seqEnd":1100,"seqStep":2,"imageDir":"/projects/show/sequence/shot/","imageFileName":"beauty.","imagePadding":4,
        "imageExtension":".exr","camera":"/obj/cameras/camera_main","channel":"night","imageWidth":1920,
        "imageHeight":1080,"preID":1,"waitForPreIDs":[1]})");
    for (int width = 1; width <= 160; ++width) {
        const auto table = jobTable(sceneWith({job}), {width, false});
        ASSERT_EQ(table.size(), 2);
        for (const auto& line : table) EXPECT_LE(columnsOf(line), width) << line.toStdString();
        if (width >= 16) {
            EXPECT_TRUE(table[1].contains(QStringView{u"out/夜/mantra"})) << width;
        }
        if (width >= 80) {
            EXPECT_TRUE(table[1].contains(QLatin1String{"/beauty.####.exr"})) << width;
        }
    }
    const auto widest = jobTable(sceneWith({job}), {0, false});
    EXPECT_TRUE(widest[1].contains(QLatin1String{"/obj/cameras/camera_main  night  1920x1080  1"}));
}

}  // namespace
