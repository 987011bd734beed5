#include "evaluate/storedCheck.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "scan/scanBudget.h"
#include "tests/evaluate/smallScene.h"

namespace vxV {

namespace {

using vxTest::nodeText;

TEST(StoredCheck, SaysWhatStoredValuesAreWorth) {
    const vxTest::_smallScene small({
        nodeText("obj", "obj", "", {}),
        nodeText("obj/a", "geo",
                 "same=[same 5.0000001]|frame=[frame 77]|zero=[zero 0]|text=[text \"1+opname(0)\"]|begun=[begun 30]|"
                 "place=[place \"/other/geo/a.bgeo\"]|early=[early 100]|now=[now 48]|wrong=[wrong 4]|none=[none 1]|"
                 "stamped=[stamped 9]|usual=[usual 3]",
                 {{"same", "$F"},
                  {"frame", "$F"},
                  {"zero", "$FEND"},
                  {"text", "1+opname(0)"},
                  {"begun", "start = 0 segment { length = 0 value = 8 8 expr = constant() } default = 30"},
                  {"place", "\"$HIP/geo/$OS.bgeo\""},
                  {"early", "$FEND"},
                  {"now", "$FEND"},
                  {"wrong", "2 + 3"},
                  {"none", "npoints(0)"},
                  {"stamped", "stamp(\"..\", \"x\", 2)"},
                  {"usual", "2 * 4"}}),
        nodeText("obj/b", "geo", "usual=3"),
    });
    std::map<std::string, std::string> verdicts;
    const _storedCounts counts = checkStoredValues(small.scene, small.source, [&](const _checkedChannel& checked) {
        verdicts[std::string(checked.channel)] = nameOf(checked.verdict).latin1();
    });
    const std::map<std::string, std::string> expected{
        {"same", "agrees"},         {"frame", "other frame"}, {"zero", "not evaluated"}, {"text", "no value"},
        {"begun", "not evaluated"}, {"place", "other place"}, {"early", "earlier"},      {"now", "agrees"},
        {"wrong", "differs"},       {"none", "no value"},     {"stamped", "stamped"},    {"usual", "not evaluated"},
    };
    EXPECT_EQ(verdicts, expected);
    EXPECT_EQ(counts.pairs, 12);
    EXPECT_EQ(counts.evaluated(), 10);
    EXPECT_EQ(counts.judged(), 3);
    EXPECT_EQ(counts.reasons, (std::map<_reason, qint64>{{_reason::geometry, 1}, {_reason::missingNode, 1}}));
}

/// What was reached; a change that loses values or agreement shows here.
TEST(StoredCheck, RealScenesAgree) {
    const QDir folder(QStringLiteral(VX_REAL_SCENES));
    const QStringList names = folder.entryList({QStringLiteral("*.hip*")}, QDir::Files);
    if (names.isEmpty()) GTEST_SKIP() << "no real scenes in " VX_REAL_SCENES;
    _storedCounts sum;
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        vxP::beginBudget();
        vxP::allowWorkFor(bytes.size());
        const vxN::_memorySource source({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        const vxN::_scene scene(source);
        sum += checkStoredValues(scene, source, {});
    }
    EXPECT_GE(static_cast<double>(sum.evaluated()), 0.70 * static_cast<double>(sum.pairs));
    EXPECT_GE(static_cast<double>(sum.of(_verdict::agrees)), 0.985 * static_cast<double>(sum.judged()));
}

}  // namespace

}  // namespace vxV
