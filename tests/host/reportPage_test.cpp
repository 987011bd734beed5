// What the report's page is given to show, and that no text of a scene gets out of its data.
#include <gtest/gtest.h>

#include <QJsonDocument>

#include "host/report/reportData.h"
#include "host/report/reportPage.h"
#include "host/results/sceneResult.h"

namespace {

using namespace vxH;

QJsonObject fromText(const QByteArray& json) {
    return QJsonDocument::fromJson(json).object();
}

QJsonObject pageScene(const QJsonObject& explained) {
    return reportData({explained}, {})[QLatin1String{"scenes"}].toArray()[0].toObject();
}

QByteArray compact(const QJsonArray& list) {
    return QJsonDocument(list).toJson(QJsonDocument::Compact);
}

TEST(ReportPage, DataComesBackUntouchedAndEndsItsBlockNowhere) {
    const char16_t hostile[] =
        u"</script><!--<script>]]>&amp;{{script}}{{data}}'\"\\\u2028\u2029\u202E\0\x1b\n\xD800 \xDC00";
    const auto text = QString::fromUtf16(hostile, std::size(hostile) - 1);
    const QJsonObject data{{text, text}};
    const auto page = reportPage(data);
    const QByteArray start{R"(<script type="application/json" id="data">)"};
    const auto from = page.indexOf(start) + start.size();
    const auto block = page.mid(from, page.indexOf("</script>", from) - from);
    EXPECT_EQ(QJsonDocument::fromJson(block).object(), data);
    for (const auto* ending : {"<", ">", "&", "\xE2\x80\xA8", "\xE2\x80\xA9"}) EXPECT_FALSE(block.contains(ending));
    EXPECT_EQ(page.count("<script"), 2);
}

TEST(ReportData, RowsHoldCellsAndNumbersToSortBy) {
    const std::tuple<const char*, const char*> cases[] = {
        {R"("seqStart":1.5,"seqEnd":9,"seqStep":2,"imageDir":"<SceneFolder>../r/")",
         R"("end":9,"frames":"1.5-9 x2","output":"/p/r/a.##.x","recorded":"<SceneFolder>../r/a.##.x","start":1.5,"step":2)"},
        {R"("seqStart":1,"seqEnd":9,"seqStep":2,"seqFrameSet":"1,5","imageDir":"/r/")",
         R"("frames":"1,5","output":"/r/a.##.x")"},
        {R"("seqStart":null,"seqEnd":9,"seqStep":0,"imageDir":"/r/")",
         R"("end":9,"frames":"?-9 x0","output":"/r/a.##.x","step":0)"}};
    for (const auto& [fields, members] : cases) {
        const auto job = fromText(
            R"({"layer":"/out/a","app":"Houdini","appRenderer":"ifd","camera":"/obj/c","channel":"t","imageWidth":4,)"
            R"("imageHeight":3,"imageFileName":"a.","imagePadding":2,"imageExtension":".x",)" +
            QByteArray{fields} + "}");
        const auto expected = fromText(R"({"driver":"/out/a","renderer":"Houdini/ifd","camera":"/obj/c","take":"t",)"
                                       R"("size":"4x3",)" +
                                       QByteArray{members} + "}");
        const auto scene = pageScene({{sceneKey, QStringLiteral("/p/s/a.hip")}, {jobsKey, QJsonArray{job}}});
        EXPECT_EQ(scene[jobsKey].toArray()[0].toObject(), expected) << QJsonDocument(scene).toJson().constData();
    }
}

TEST(ReportData, JobWaitsForTheNearestBeforeItOfItsOwnDriver) {
    QJsonArray jobs;
    const auto add = [&](const char* driver, int preID, const QJsonArray& waits) {
        jobs.append(QJsonObject{{QLatin1String{"layer"}, QLatin1String{driver}},
                                {QLatin1String{"preID"}, preID},
                                {QLatin1String{"waitForPreIDs"}, waits}});
    };
    add("a", 1, {});
    add("b", 1, {});
    add("a", 1, {});
    add("b", 2, {1});
    add("a", 3, {1, 2});
    add("c", 4, {1, 4, 9});
    QByteArrayList found;
    const auto rows = pageScene({{jobsKey, jobs}})[jobsKey].toArray();
    for (const auto& row : rows) {
        const auto job = row.toObject();
        found +=
            compact(job[QLatin1String{"waitsFor"}].toArray()) + compact(job[QLatin1String{"waitsForIDs"}].toArray());
    }
    EXPECT_EQ(found.join(' ').toStdString(), "[][] [][] [][] [2][] [3,4][] [3][4,9]");
}

TEST(ReportData, SkippedAreSectionsWithoutAnOutcomeAndThoseNotRecognised) {
    const auto scene = pageScene(fromText(
        R"({"sections":[{"node":"a","outcome":"jobs"},{"node":"b","outcome":"none","reader":"wedge"},)"
        R"({"node":"c","outcome":"kept","reader":"wedge"},{"node":"d","outcome":"none","reader":"camera"},)"
        R"({"node":"e","outcome":"none","reader":"driver"},)"
        R"({"hasFrames":true,"node":"f","outcome":"none","reader":"driver"}],"notRecognised":[{"node":"g"}]})"));
    EXPECT_EQ(compact(scene[QLatin1String{"skipped"}].toArray()).toStdString(),
              R"([{"node":"b","outcome":"none","reader":"wedge"},)"
              R"({"hasFrames":true,"node":"f","outcome":"none","reader":"driver"},{"node":"g"}])");
    const auto untold = pageScene({{codeKey, 3}, {errorKey, QStringLiteral("e")}});
    EXPECT_EQ(untold.keys(), QStringList({QStringLiteral("code"), QStringLiteral("error"), QStringLiteral("jobs")}));
}

}  // namespace
