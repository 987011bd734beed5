// What the report's page is given to show, and that no text of a scene gets out of its data.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <limits>

#include "host/report/reportData.h"
#include "host/report/reportPage.h"
#include "tests/testText.h"

namespace {

using namespace vxH;

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

TEST(ReportData, SkippedAreDriversAndWedgesWithoutAnOutcomeAndSectionsNotRecognised) {
    using _outcome = vxE::_outcomeKind;
    using _reader = vxP::_sectionReader;
    const std::tuple<const char16_t*, _reader, _outcome, bool> sections[] = {
        {u"a", _reader::driver, _outcome::jobs, true},      {u"b", _reader::wedge, _outcome::none, false},
        {u"c", _reader::wedge, _outcome::kept, false},      {u"d", _reader::camera, _outcome::none, true},
        {u"e", _reader::driver, _outcome::none, false},     {u"f", _reader::driver, _outcome::none, true},
        {u"/out/h", _reader::driver, _outcome::none, false}};
    _explainedScene scene{};
    scene.explanation.isSceneRead = true;
    for (const auto& [node, reader, outcome, hasFrames] : sections) {
        vxE::_explainedSection section{};
        section.node = QString::fromUtf16(node);
        section.reader = reader;
        section.outcome = outcome;
        section.hasFrames = hasFrames;
        section.code = reader == _reader::camera ? QStringLiteral("notACamera") : QStringLiteral("noOutput");
        scene.explanation.sections.append(section);
    }
    scene.explanation.notRecognised.append({QStringLiteral("g"), {}, 0, 0, {}, {}});
    QString nodes;
    const auto skipped = reportSceneFromBytes(toBytes(reportScene(scene))).shown[QLatin1String{"skipped"}].toArray();
    for (const auto& section : skipped) nodes += section.toObject()[QLatin1String{"node"}].toString();
    EXPECT_EQ(vxTest::plain(nodes), "bf/out/hg");
}

/// Of few scenes every pair is compared, of many neighbours where that is asked for, and none whose jobs are not known.
TEST(ReportData, ComparesScenesInPairs) {
    const std::tuple<int, int, int> cases[] = {{1, 0, 0}, {2, 1, 1}, {5, 10, 10}, {20, 190, 190}, {21, 0, 20}};
    for (const auto& [count, pairs, pairsAskedFor] : cases) {
        std::vector<_reportScene> scenes(static_cast<std::size_t>(count));
        for (auto& scene : scenes) scene.result.code = 1;
        scenes.insert(scenes.begin(), _reportScene{{}, {{{}, 6, {}, {}}, {_job{}}}});
        for (const bool asksToCompare : {false, true}) {
            const auto data = reportData(scenes, {{}, {}, asksToCompare});
            EXPECT_EQ(data[QLatin1String{"comparisons"}].toArray().size(), asksToCompare ? pairsAskedFor : pairs)
                << count;
        }
    }
}

TEST(ReportData, TellsHowManyFramesAJobHasOrWhyNot) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const std::tuple<const char*, double, double, int, QJsonValue, const char*> cases[] = {
        {"", 1, 10, 1, 10, ""},
        {"", 1, 10, 4, 3, ""},
        {"", -2.5, 2, 2, 3, ""},
        {"", 7, 7, 9, 1, ""},
        {"", 1, 10, 0, QJsonValue::Undefined, "a step of 0"},
        {"", 10, 1, 1, QJsonValue::Undefined, "starts behind its end"},
        {"", 1, nan, 1, QJsonValue::Undefined, "a frame that is no number"},
        {"1-3,8", 0, 0, 0, QJsonValue::Undefined, ""}};
    for (const auto& [frameSet, start, end, step, count, fault] : cases) {
        _explainedScene scene{};
        auto& job = scene.jobs.emplace_back();
        job.seqFrameSet = QLatin1String{frameSet};
        job.seqStart = start;
        job.seqEnd = end;
        job.seqStep = step;
        const auto row = reportScene(scene).shown[QLatin1String{"jobs"}].toArray()[0].toObject();
        EXPECT_EQ(row[QLatin1String{"frameCount"}], count) << start << ' ' << end << ' ' << step;
        EXPECT_EQ(row[QLatin1String{"fault"}].toString(), QLatin1String{fault});
    }
}

}  // namespace
