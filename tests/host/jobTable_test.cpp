// Cells, elision and widths of the job table.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

#include "host/base/displayText.h"
#include "host/results/jobCells.h"
#include "host/results/sceneResult.h"
#include "host/text/jobTable.h"
#include "tests/testText.h"

namespace {

using namespace vxH;

QJsonObject sceneWith(const QJsonArray& jobs) {
    return {{sceneKey, QStringLiteral("/projects/a/scene.hip")}, {codeKey, 1}, {jobsKey, jobs}};
}

QJsonObject fromText(const char* json) {
    return QJsonDocument::fromJson(json).object();
}

TEST(JobCells, SayFramesAndOutput) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {R"("seqStart":1,"seqEnd":5,"seqStep":2,"imageDir":"<SceneFolder>../<Channel>/","imagePadding":1,"channel":"n")",
         "1-5 x2", "/projects/n/a.#.exr"},
        {R"("seqStart":1.5,"seqEnd":2000000,"seqStep":1,"imageDir":"<Database>/<Channel>/","sceneDatabaseDir":"/db")",
         "1.5-2000000", "/db/<Channel>/a..exr"},
        {R"("seqStart":-5,"seqEnd":5,"seqStep":1,"imageDir":"<SceneFolder>../../../r/","imagePadding":4,
         "imageSingleOutputFile":true)",
         "-5 to 5", "/../r/a..exr"},
        {R"("seqStart":null,"seqEnd":2,"seqStep":1,"imageDir":"/")", "?-2", "/a..exr"},
        {R"("seqStart":3,"seqEnd":3,"seqStep":2,"imageDir":"/")", "3", "/a..exr"}};
    for (const auto& [fields, frames, output] : cases) {
        const auto job =
            fromText((std::string(R"({"imageFileName":"a.","imageExtension":".exr",)") + fields + "}").c_str());
        EXPECT_EQ(framesCell(job), QLatin1String{frames});
        EXPECT_EQ(outputCell(job, _cellScene{sceneWith({job})}), QLatin1String{output});
    }
}

TEST(JobCells, WaitedForJobsAreNumberedAsLongAsTheirOwnNumbersAreUnique) {
    QJsonArray jobs;
    for (int i = 1; i <= 257; ++i) jobs.append(QJsonObject{{QLatin1String{"preID"}, i % 256}});
    const _cellScene scene{sceneWith(jobs)};
    EXPECT_EQ(waitsForCell(fromText(R"({"waitForPreIDs":[2, 0]})"), scene), QLatin1String{"2, 256"});
    EXPECT_EQ(waitsForCell(fromText(R"({"waitForPreIDs":[1]})"), scene), QLatin1String{"id 1"});
}

TEST(ElidePath, KeepsTheFileName) {
    useUtf8Characters();  // widths follow the character set
    const std::tuple<const char*, int, const char*> cases[] = {{"/projects/shot/b.exr", 14, "/proj.../b.exr"},
                                                               {"D:\\projects\\b.exr", 11, "D:...\\b.exr"},
                                                               {"/a/beautyBeauty.exr", 10, "...uty.exr"},
                                                               {"/a/b.exr", 3, "exr"},
                                                               {"/a/b.exr", 8, "/a/b.exr"},
                                                               {"/夜夜夜夜/夜.exr", 13, "/夜.../夜.exr"}};
    for (const auto& [path, columns, elided] : cases)
        EXPECT_EQ(elidePath(QString::fromUtf8(path), columns).toStdString(), elided);
}

TEST(JobTable, FitsEveryWidthAndKeepsTheDriver) {
    useUtf8Characters();
    const auto job = fromText(R"({"layer":"out/夜/mantra","app":"Houdini","appRenderer":"createIFD","seqStart":1001,
        "seqEnd":1100,"seqStep":2,"imageDir":"/projects/show/sequence/shot/","imageFileName":"beauty.","imagePadding":4,
        "imageExtension":".exr","camera":"/obj/cameras/camera_main","channel":"night"})");
    for (int width = 1; width <= 160; ++width) {
        const auto table = jobTable(sceneWith({job}), {width, false});
        ASSERT_EQ(table.size(), 2);
        for (const auto& line : table) EXPECT_LE(columnsOf(line), width) << line.toStdString();
        EXPECT_TRUE(width < 16 || table[1].contains(QStringView{u"out/夜/mantra"})) << width;
        EXPECT_TRUE(width < 80 || table[1].contains(QLatin1String{"/beauty.####.exr"})) << width;
    }
}

}  // namespace
