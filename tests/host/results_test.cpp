// Jobs as structs: fields, waits, cells, and their table.
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "host/base/displayText.h"
#include "host/results/jobCells.h"
#include "host/results/jobFields.h"
#include "host/results/jobWaits.h"
#include "host/text/jobTable.h"
#include "tests/testText.h"

namespace {

using namespace vxH;

TEST(JobFields, ComeThroughJsonAsTheyAre) {
    auto record = std::make_unique<vxJ::_JobBasics_largePath>();
    record->app = u"\x1b[1m\u2028";
    record->jobID = std::numeric_limits<quint64>::max();
    record->imageMulti = -5;
    record->addWaitForPreID(200);
    record->channels[3].fileName = u"/img/depth.";
    record->channels[3].extension = u".tif";
    record->sceneSettings.seqStart = -1.5;
    record->sceneSettings.seqEnd = std::numeric_limits<double>::infinity();
    record->sceneSettings.customDataSet_Str(QStringLiteral("HoudiniJob"), QStringLiteral("/job"));
    auto job = jobFromRecord(*record);
    job.waitsFor = {noJob, 0, 16383};
    _job read;
    readJson(jsonOf(job), read);
    EXPECT_EQ(read.jobID, record->jobID);
    EXPECT_EQ(read.channels, (std::vector<_channelFile>{{3, QStringLiteral("/img/depth."), QStringLiteral(".tif")}}));
    EXPECT_EQ(read.waitsFor, job.waitsFor);
    for (const auto& field : jobFields()) EXPECT_TRUE(field.isEqual(job, read)) << vxTest::plain(QString{field.name});
}

TEST(JobWaits, MeanTheJobBeforeThatHasMostInCommon) {
    struct _row {
        const char* driver;
        const char* take;
        int preID;
        std::vector<int> waits;
        const char* cell;
    };
    const _row rows[] = {{"a", "", 1, {}, ""},   {"b", "", 1, {}, ""},         {"a", "", 1, {}, ""},
                         {"b", "", 2, {1}, "2"}, {"a", "", 3, {1, 2}, "3, 4"}, {"c", "", 4, {1, 4}, "3, id 4"},
                         {"a", "t", 1, {}, ""},  {"a", "", 5, {1}, "3"},       {"c", "t", 6, {1}, "7"}};
    std::vector<_job> jobs;
    for (const auto& row : rows) {
        auto& job = jobs.emplace_back();
        job.layer = QString::fromUtf8(row.driver);
        job.channel = QString::fromUtf8(row.take);
        job.preID = row.preID;
        job.waitForPreIDs = row.waits;
    }
    findWaits(jobs);
    for (std::size_t i = 0; i < jobs.size(); ++i) EXPECT_EQ(waitsForCell(jobs[i]), QLatin1String{rows[i].cell}) << i;
    for (const auto& [list, cell] : {std::pair{"2 4", "2, 4"}, {"8 9", "7"}, {"1 x", "7"}}) {
        jobs.back().customData = {{vxJ::CUSTOMWaitsFor, QString::fromUtf8(list)}};
        findWaits(jobs);
        EXPECT_EQ(waitsForCell(jobs.back()), QLatin1String{cell}) << list;
    }
}

_job jobWith(double first, double last, int step, const char16_t* folder) {
    _job job;
    job.seqStart = first;
    job.seqEnd = last;
    job.seqStep = step;
    job.imageDir = QString::fromUtf16(folder);
    job.imageFileName = QStringLiteral("a.");
    job.imageExtension = QStringLiteral(".exr");
    job.sceneDatabaseDir = QStringLiteral("/db");
    return job;
}

TEST(JobCells, SayFramesAndOutput) {
    constexpr double undefined = std::numeric_limits<double>::quiet_NaN();
    struct _row {
        _job job;
        const char* take;
        int padding;
        const char* frames;
        const char* output;
    };
    _row rows[] = {{jobWith(1, 5, 2, u"<SceneFolder>../<Channel>/"), "n", 1, "1-5 x2", "/projects/n/a.#.exr"},
                   {jobWith(1.5, 2000000, 1, u"<Database>/<Channel>/"), "", 0, "1.5-2000000", "/db/<Channel>/a..exr"},
                   {jobWith(-5, 5, 1, u"<SceneFolder>../../../r/"), "", 4, "-5 to 5", "/../r/a.####.exr"},
                   {jobWith(undefined, 2, 1, u"/"), "", 0, "?-2", "/a..exr"},
                   {jobWith(3, 3, 2, u"/"), "", 0, "3", "/a..exr"}};
    for (auto& [job, take, padding, frames, output] : rows) {
        job.channel = QString::fromUtf8(take);
        job.imagePadding = padding;
        EXPECT_EQ(framesCell(job), QLatin1String{frames});
        EXPECT_EQ(outputCell(job, QStringLiteral("/projects/a/scene.hip")), QLatin1String{output});
    }
}

TEST(ElidePath, KeepsTheFileName) {
    useUtf8Characters();  // widths follow the character set
    const std::tuple<const char*, int, const char*> cases[] = {{"/projects/shot/b.exr", 14, "/proj.../b.exr"},
                                                               {"D:\\projects\\b.exr", 11, "D:...\\b.exr"},
                                                               {"/a/beautyBeauty.exr", 10, "...uty.exr"},
                                                               {"/a/b.exr", 3, "exr"},
                                                               {"/夜夜夜夜/夜.exr", 13, "/夜.../夜.exr"}};
    for (const auto& [path, columns, elided] : cases)
        EXPECT_EQ(elidePath(QString::fromUtf8(path), columns).toStdString(), elided);
}

TEST(JobTable, FitsEveryWidthAndKeepsTheDriver) {
    useUtf8Characters();
    auto job = jobWith(1001, 1100, 2, u"/projects/show/sequence/shot/");
    job.layer = QStringLiteral("out/夜/mantra");
    job.app = QStringLiteral("Houdini");
    job.camera = QStringLiteral("/obj/cameras/camera_main");
    job.channel = QStringLiteral("night");
    for (int width = 1; width <= 160; ++width) {
        const auto table = jobTable({{}, {job}}, {width, false});
        ASSERT_EQ(table.size(), 2);
        for (const auto& line : table) EXPECT_LE(columnsOf(line), width) << line.toStdString();
        EXPECT_TRUE(width < 16 || table[1].contains(job.layer)) << width;
        EXPECT_TRUE(width < 80 || table[1].contains(QLatin1String{"/a..exr"})) << width;
    }
}

}  // namespace
