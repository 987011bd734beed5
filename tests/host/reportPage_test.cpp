// What the report's page is given to show, and that no text of a scene gets out of its data.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

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
        {u"a", _reader::driver, _outcome::jobs, true},  {u"b", _reader::wedge, _outcome::none, false},
        {u"c", _reader::wedge, _outcome::kept, false},  {u"d", _reader::camera, _outcome::none, true},
        {u"e", _reader::driver, _outcome::none, false}, {u"f", _reader::driver, _outcome::none, true}};
    _explainedScene scene{};
    scene.explanation.isSceneRead = true;
    for (const auto& [node, reader, outcome, hasFrames] : sections) {
        vxE::_explainedSection section{};
        section.node = QString::fromUtf16(node);
        section.reader = reader;
        section.outcome = outcome;
        section.hasFrames = hasFrames;
        scene.explanation.sections.append(section);
    }
    scene.explanation.notRecognised.append({QStringLiteral("g"), {}, 0, 0, {}, {}});
    QString nodes;
    const auto skipped = reportSceneFromBytes(toBytes(reportScene(scene))).shown[QLatin1String{"skipped"}].toArray();
    for (const auto& section : skipped) nodes += section.toObject()[QLatin1String{"node"}].toString();
    EXPECT_EQ(vxTest::plain(nodes), "bfg");
}

/// Of many scenes neighbours are compared, of few every pair, and none whose jobs are not known.
TEST(ReportData, ComparesScenesInPairs) {
    const std::pair<int, int> cases[] = {{1, 0}, {2, 1}, {5, 10}, {20, 190}, {21, 20}};
    for (const auto& [count, pairs] : cases) {
        std::vector<_reportScene> scenes(static_cast<std::size_t>(count));
        for (auto& scene : scenes) scene.result.code = 1;
        scenes.insert(scenes.begin(), _reportScene{{}, {{{}, 6, {}, {}}, {_job{}}}});
        EXPECT_EQ(reportData(scenes, {})[QLatin1String{"comparisons"}].toArray().size(), pairs) << count;
    }
}

}  // namespace
