// Jobs as structs: fields, waits, cells, and their table.
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "host/base/displayText.h"
#include "host/base/shellText.h"
#include "host/results/jobCells.h"
#include "host/results/jobFields.h"
#include "host/results/jobWaits.h"
#include "host/text/jobTable.h"
#include "host/text/sharedFolder.h"
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
    auto job = jobFromRecord({*record, {}});
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
        bool hasOddFrames = false;
        bool hasOddOutput = false;
    };
    _row rows[] = {{jobWith(1, 5, 2, u"<SceneFolder>../<Channel>/"), "n", 1, "1-5 x2", "/projects/n/a.#.exr"},
                   {jobWith(1.5, 2000000, 1, u"<Database>/<Channel>/"), "", 0, "1.5-2000000", "/db/<Channel>/a..exr"},
                   {jobWith(-5, 5, 1, u"<SceneFolder>../../../r/"), "", 4, "-5 to 5", "/../r/a.####.exr"},
                   {jobWith(undefined, 2, 1, u"/"), "", 0, "?-2", "/a..exr", true},
                   {jobWith(1, 2, 0, u"/"), "", 0, "1-2 x0", "/a..exr", true},
                   {jobWith(3, 3, 0, u"/%d"), "", 0, "3", "/%da..exr", false, true}};
    for (auto& [job, take, padding, frames, output, isOddRange, isOddName] : rows) {
        job.channel = QString::fromUtf8(take);
        job.imagePadding = padding;
        EXPECT_EQ(framesCell(job), QLatin1String{frames});
        EXPECT_EQ(outputCell(job, QStringLiteral("/projects/a/scene.hip")), QLatin1String{output});
        EXPECT_EQ(hasOddFrames(job), isOddRange) << frames;
        EXPECT_EQ(hasOddOutput(job), isOddName) << output;
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

TEST(WrappedText, KeepsItsWordsAndItsWidth) {
    useUtf8Characters();
    const std::tuple<const char*, int, int, const char*> cases[] = {
        {"no width", 0, 2, "no width"},
        {"words that are short", 12, 2, "words that|  are short"},
        {"a:  /obj/folder/node", 12, 2, "a:  /obj/|  folder/|  node"},
        {"  indented already", 12, 4, "  indented|already"},  // no room beside the indent
        {"12  /folder/longer/than/a/line", 12, 2, "12  /folder/|  longer/|  than/a/|  line"},
        {"xxxxxxxxxxxx", 5, 0, "xxxxx|xxxxx|xx"},
        {"夜夜", 1, 0, "夜|夜"}};
    for (const auto& [text, width, indent, lines] : cases)
        EXPECT_EQ(wrapped(QString::fromUtf8(text), width, indent).join(QLatin1Char('|')).toStdString(), lines);
}

TEST(ShellText, IsOneWordForAShell) {
    const std::pair<const char16_t*, const char*> cases[] = {{u"/a/b-1.hip", "/a/b-1.hip"},
                                                             {u"", "''"},
                                                             {u"/a b/$x'y.hip", "'/a b/$x'\\''y.hip'"},
                                                             {u"/夜/a*", "'/夜/a*'"},
                                                             {u"/a\x1b[é", "$'/a\\x1b\\x5b\\xc3\\xa9'"}};
    for (const auto& [text, quoted] : cases) EXPECT_EQ(shellQuoted(QString::fromUtf16(text)).toStdString(), quoted);
}

TEST(SharedFolder, IsTheOneThatSavesMostAndLeavesNoPathUnclear) {
    const std::tuple<const char*, const char*, const char*, bool> cases[] = {
        {"/a/b/x /a/b/c/y", "/s/", "/a/b/", true},
        {"/a/x /b/y", "/s/", "", false},
        {"/shots/x /shots/y /b/z", "/shots/", "/shots/", false},
        {"/s/x E:/long/x E:/long/y", "/s/", "E:/long/", false},
        {"/shots/x /shots/y z", "/shots/", "", false},
        {"/ab/x /abc/y", "/s/", "", false},
        {"/a/x", "/s/", "/a/", true}};
    for (const auto& [paths, usual, folder, ofAll] : cases) {
        const auto shared = sharedFolder(QString::fromUtf8(paths).split(QLatin1Char(' ')), QString::fromUtf8(usual));
        EXPECT_EQ(shared.path.toStdString(), folder) << paths;
        EXPECT_EQ(shared.ofAll && *folder != '\0', ofAll) << paths;
    }
    EXPECT_EQ(withoutFolder(QStringLiteral("/a/"), QStringLiteral("/a/")), QStringLiteral("/a/"));
}

_explainedScene tableScene() {
    _explainedScene scene;
    scene.scene = QStringLiteral("/projects/show/a b.hip");
    for (const auto* take : {u"day", u"night", u"夜"}) {
        auto job = jobWith(1001, 1100, 0, u"/projects/show/sequence/%dARM/");
        job.layer = QStringLiteral("/out/夜/mantra_beauty_of_everything");
        job.app = QStringLiteral("Houdini");
        job.appRenderer = QStringLiteral("alembic-singleFile");
        job.camera = QStringLiteral("/obj/cameras/camera_main");
        job.channel = QString::fromUtf16(take);
        scene.jobs.push_back(job);
    }
    scene.jobs[1].seqStep = 1;
    scene.explanation.isSceneRead = true;
    scene.explanation.warnings = {{{}, {}, {2}, {}}, {{}, QStringLiteral("/out/other"), {}, {}}};
    vxE::_explainedSection skipped{};
    skipped.reader = vxP::_sectionReader::driver;
    skipped.node = QStringLiteral("/out/other");
    scene.explanation.sections = {skipped};
    return scene;
}

/// Numbers, frames and renderers are whole or not there; what is not there is told.
TEST(JobTable, FitsEveryWidthAndSaysWhatIsNotThere) {
    useUtf8Characters();
    const auto scene = tableScene();
    for (int width = 2; width <= 200; ++width) {  // wide characters take two
        const auto lines = jobTable(scene, {}, {width, false});
        const auto text = lines.join(QLatin1Char('\n'));
        for (const auto& line : lines) EXPECT_LE(columnsOf(line), width) << line.toStdString();
        if (width < 40) continue;
        const std::pair<const char*, const char*> columns[] = {
            {"renderer", "Houdini/alembic-singleFile"}, {"frames", "!1001-1100 x0"}, {"#", "2!"}, {"take", "night"}};
        const auto leftOut = text.mid(text.lastIndexOf(QLatin1String{"left out:"})).simplified();
        for (const auto& [title, value] : columns) {
            const bool isTold = leftOut.startsWith(QLatin1String{"left"}) && leftOut.contains(QLatin1String{title});
            EXPECT_NE(text.simplified().contains(QLatin1String{value}), isTold) << width << ' ' << title << '\n'
                                                                                << qPrintable(text);
        }
    }
}

/// Names that differ near their ends only are given the room of another column.
TEST(JobTable, KeepsRowsApart) {
    useUtf8Characters();
    _explainedScene scene;
    for (int variant = 1; variant <= 3; ++variant) {
        auto job = jobWith(1001, 1100, 1, u"/projects/show/sequence/shot/");
        job.imageFileName = QStringLiteral("light_test_wedge_key_%1.000000.").arg(variant);
        job.layer = QStringLiteral("/out/light_test");
        job.app = QStringLiteral("Houdini");
        job.appRenderer = variant == 2 ? QStringLiteral("opengl_of_that_name") : QStringLiteral("opengl");
        scene.jobs.push_back(job);
    }
    for (int width = 45; width <= 120; ++width) {
        auto rows = jobTable(scene, {}, {width, false}).filter(QStringLiteral(".exr"));
        for (auto& row : rows) row.remove(0, 1);  // the number
        EXPECT_EQ(rows.size(), 3) << width;
        EXPECT_EQ(rows.removeDuplicates(), 0) << width << rows.join(QLatin1Char('\n')).toStdString();
    }
}

TEST(JobTable, ShowsNamedColumnsAndAllWhereItIsWide) {
    useUtf8Characters();
    _tableOptions options;
    EXPECT_TRUE(findJobColumns(QStringLiteral("take, seqStep,number"), options.columns).isEmpty());
    EXPECT_EQ(jobTable(tableScene(), options, {}).join(QLatin1Char('|')).toStdString(),
              "take   seqStep  #|day    0        1|night  1        2!|夜     0        3");
    const QString names = QStringLiteral("output,driver,renderer,frames,size,camera,layer,imageDir");
    EXPECT_TRUE(findJobColumns(names, options.columns).isEmpty());
    const auto narrow = jobTable(tableScene(), options, {60, false}).join(QLatin1Char('\n'));
    for (const auto& column : options.columns) EXPECT_TRUE(narrow.contains(column.title)) << narrow.toStdString();
    EXPECT_FALSE(narrow.contains(QLatin1String{"left out"}));
    EXPECT_EQ(jobTable(tableScene(), {{}, true}, {40, false}), jobTable(tableScene(), {}, {}));
    const char* const plug = "/p/lug-in";
    EXPECT_EQ(
        jobText(tableScene(), {"vxscene", plug}, {{}, true}, {40, false}).section(QLatin1Char('\n'), -2, -2),
        QLatin1String{"2 warnings (!), 1 driver without a job: vxscene explain '/projects/show/a b.hip' -- /p/lug-in"});
}

}  // namespace
