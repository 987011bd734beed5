// Scenes with one fault each, and what is said about it.
#include "explain/explainedLoad.h"

#include <gtest/gtest.h>

#include "tests/support/archiveText.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace {

using namespace vxE;
using vxTest::driver;
using vxTest::plain;

constexpr const char* soundDriver = "vm_picture=$HIP/a.$F4.exr";

_explanation explained(const QByteArray& scene, const _explanationBudget& budget = {}) {
    vxTest::freshScanState();
    const vxTest::_sceneFolder folder;
    vxTest::_loader loader(folder.write(scene));
    _explanation explanation;
    loadExplained(loader.record(), explanation, budget);
    return explanation;
}

// ---- outcomes

struct _outcomeCase {
    const char* what;
    QByteArray scene;
    const char* code;  // empty: something came of it
    const char* said;  // words of the outcome
};

const _outcomeCase outcomeCases[] = {
    {"job", driver(soundDriver), "", "job 1 Houdini"},
    {"export_and_render", driver("vm_picture=$HIP/a.$F4.exr|soho_outputmode=\"on\"|soho_diskfile=/a.$F4.ifd"), "",
     "job 2 Mantra_StdA waits for it"},
    {"viewer", driver("vm_picture=ip"), "viewerOnly", "'ip'"},
    {"no_name", driver("trange=\"on\""), "noOutput", ""},
    {"empty_name", driver("vm_picture=\"\""), "emptyOutput", ""},
    {"last_refused_counts", driver("vm_picture=\"\"|sopoutput=`chs(\"x\")`"), "expression", "chs("},
    {"default_name", driver("vm_picture=testfile.exr"), "defaultName", "testfile.exr"},
    {"export_without_file", driver("vm_picture=a.exr|soho_outputmode=\"on\"|soho_diskfile=\"\""), "noExportFile",
     "is empty"},
    {"export_to_viewer", driver("vm_picture=a.exr|soho_outputmode=\"on\"|soho_diskfile=ip"), "noExportFile", "'ip'"},
    {"export_without_parameter", driver("vm_picture=a.exr|soho_outputmode=\"on\""), "noExportFile", "no export file"},
    {"only_export", driver("lopoutput=$HIP/a.usd"), "noImage", ""},
    {"not_closed", "out/a.parm {\n" + vxTest::param("vm_picture", "a.exr"), "notClosed", ""},
    {"alembic_reader", driver("filename=a.abc|objectPath=/geo"), "notAnAlembicWriter", "objectPath"},
    {"camera", driver("res=1280\t720", "obj/cam1"), "", "camera"},
    {"helper_of_camera", driver("res=1\t1", "obj/cam1/xform1"), "notACamera", "'xform'"},
    {"driver_called_like_a_camera", driver("trange=\"on\"|filename=/a.abc", "out/cam1"), "takenForCamera", "a camera"},
    {"driver_called_like_a_wedge", driver("trange=\"on\"|vm_picture=/a", "out/wedge1"), "takenForWedge", "a wedge"},
    {"wedge", driver("driver=/out/a|wedgemethod=channel|steps1=3", "out/wedge1"), "", "repeated"},
    {"wedge_by_take", driver("driver=/out/a|wedgemethod=take|steps1=3", "out/wedge1"), "wedgeMethod", "'take'"},
    {"wedge_by_wire", driver("driver=\"\"|wedgemethod=channel|steps1=3", "out/wedge1"), "wedgeWithoutDriver", ""},
    {"wedge_steps_follow", driver("driver=/out/a|wedgemethod=channel|steps1=[ steps1\t4 ]", "out/wedge1"), "wedgeSteps",
     ""},
    {"wedge_with_gaps", driver("driver=/out/a|wedgemethod=channel|steps2=4", "out/wedge1"), "wedgeChannels", ""},
    {"wedge_without_channel", driver("driver=/out/a|wedgemethod=channel", "out/wedge1"), "wedgeWithoutVariants", ""},
    {"wedge_left", driver("driver=/out/a|name=x", "out/wedge1"), "notAWedge", "'name'"},
};

class Outcome : public testing::TestWithParam<_outcomeCase> {};

TEST_P(Outcome, IsTold) {
    const auto section = explained(GetParam().scene).sections.value(0);
    EXPECT_EQ(plain(section.code), GetParam().code);
    EXPECT_NE(plain(section.text).find(GetParam().said), std::string::npos) << plain(section.text);
    EXPECT_EQ(section.outcome == _outcomeKind::none, *GetParam().code != '\0');
}

INSTANTIATE_TEST_SUITE_P(Table, Outcome, testing::ValuesIn(outcomeCases), vxTest::rowName);

TEST(ExplainedLoad, PassesDriversOverBehindTooManyJobs) {
    const auto sections = explained(driver(soundDriver).repeated(252)).sections;
    ASSERT_EQ(sections.size(), 252);
    EXPECT_EQ(sections[250].jobs, QList<int>{251});
    EXPECT_EQ(plain(sections[251].code), "tooManyJobs");
}

TEST(ExplainedLoad, TellsWhereASectionIsAndWhatItsReaderMet) {
    const QByteArray front = "x\r\n\n" + QByteArray(3 << 20, 'y') + "\nset -g A = 'b'\n";
    const auto section =
        explained(front + driver("f=1\t2\t1|vm_picture=\"\"|RS_outputFileFormat=.exr|sopoutput=a")).sections.value(0);
    EXPECT_EQ(section.line, 5);
    EXPECT_EQ(section.byte, front.size());
    EXPECT_EQ(plain(section.node), "/out/a");
    EXPECT_TRUE(section.hasFrames);
    EXPECT_EQ(plain(section.details.join(QLatin1Char('|'))), "vm_picture:  (empty)|sopoutput: a");
}

TEST(ExplainedLoad, TellsNothingOfASceneThatCannotBeRead) {
    vxTest::_loader loader(QStringLiteral("/none.hip"));
    _explanation explanation;
    EXPECT_EQ(loadExplained(loader.record(), explanation), vxP::resultCannotOpen);
    EXPECT_FALSE(explanation.isSceneRead);
}

// ---- sections that no reader takes

QByteArray typeEntry(const QByteArray& path, const QByteArray& type) {
    return path + ".init" + QByteArray(1, '\0') + "type = " + type + "\n";
}

struct _strangerCase {
    const char* what;
    QByteArray scene;
    const char* found;  // node, type and reason; empty: it is not listed
};

const QByteArray frames = "trange=\"on\"|sopoutput=/a.fbx";

const _strangerCase strangerCases[] = {
    {"other_root", driver(frames, "tasks/net/mantra1"), "/tasks/net/mantra1  noRoot"},
    {"other_letter_case", driver(frames, "Out/mantra1"), "/Out/mantra1  noRoot"},
    {"taken_by_a_part_of_its_path", driver(frames, "obj/geo0/rop_fbx1"), ""},
    {"no_mark_at_all", typeEntry("obj/box/a", "rop_fbx") + driver(frames, "obj/box/a"), "/obj/box/a rop_fbx noMark"},
    {"type_of_another_node", typeEntry("obj/box/b", "rop_fbx") + driver(frames, "obj/box/a"), "/obj/box/a  noMark"},
    {"ruled_out", driver(frames, "stage/karmarenderproperties"), "/stage/karmarenderproperties  ruledOut"},
    {"in_an_archive", driver("trange=on|sopoutput=/a", "tasks/a"), "/tasks/a  noRoot"},
    {"in_a_licensed_archive", driver(frames, "} HouNC\x1a" + QByteArray(28, 'a') + "tasks/a"), "/tasks/a  noRoot"},
    {"behind_the_end_of_the_load", "frange 1 2\n" + QByteArray("out/b.parm {\n") + driver(frames),
     "/out/a  notReached"},
    {"without_frames", driver("sopoutput=/a.fbx", "obj/box/a") + driver("trange=\"on\"", "obj/box/b"), ""},
    {"reader_of_a_file", typeEntry("obj/box/a", "file") + driver(frames, "obj/box/a"), ""},
};

class Stranger : public testing::TestWithParam<_strangerCase> {};

TEST_P(Stranger, IsListedWithItsReason) {
    const QByteArray before = driver("res=1\t1", "obj/cam1");
    const auto list = explained(before + GetParam().scene).notRecognised;
    ASSERT_EQ(list.size(), *GetParam().found == '\0' ? 0 : 1);
    for (const _unrecognisedSection& section : list)
        EXPECT_EQ(plain(section.node + QLatin1Char(' ') + section.type + QLatin1Char(' ') + section.code),
                  GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(Table, Stranger, testing::ValuesIn(strangerCases), vxTest::rowName);

// ---- warnings

QByteArray channels(const QByteArray& path, const QByteArray& f1, const QByteArray& f2) {
    return path + ".chn {\n  channel f1 {\n    segment { length = 0 value = 0 0 expr = " + f1 +
           " }\n  }\n  channel f2 {\n    segment { length = 0 value = 0 0 expr = " + f2 + " }\n  }\n}\n";
}

QByteArray framesDriver(const QByteArray& range) {
    return driver("trange=\"on\"|f=" + range + "|" + soundDriver);
}

struct _warningCase {
    const char* what;
    QByteArray scene;
    const char* code;  // empty: no warning
};

QByteArray sizedDriver(const QByteArray& isOverridden, const QByteArray& size) {
    return driver("res=640\t480", "obj/cam1") +
           driver("camera=/obj/cam1|override_camerares=" + isOverridden + "|res_override=" + size + '|' + soundDriver);
}

const QByteArray followingFrames = channels("out/a", "$FSTART", "$FEND");

const _warningCase warningCases[] = {
    {"sound", driver(soundDriver), ""},
    {"frames_in_wrong_order", framesDriver("9\t1\t1"), "framesUnusable"},
    {"step_zero", framesDriver("[ f1\t1 ] \t190\t1"), "framesUnusable"},
    {"frames_by_expression", followingFrames + framesDriver("[ f1\t0 ] \t[ f2\t0 ] \t1"), "framesByExpression"},
    {"frames_of_another_scene", "frange 1001 1100\n" + followingFrames + framesDriver("[ f1\t1 ] \t[ f2\t240 ] \t1"),
     "framesByExpression"},
    {"frames_of_this_scene", "frange 1 240\n" + followingFrames + framesDriver("[ f1\t1 ] \t[ f2\t240 ] \t1"), ""},
    {"expression_of_another_node", channels("out/b", "$FSTART", "$FEND") + framesDriver("[ f1\t0 ] \t[ f2\t0 ] \t1"),
     ""},
    {"current_frame", driver(QByteArray("trange=\"off\"|") + soundDriver), "currentFrameOnly"},
    {"current_frame_of_one", "frange 7 7\n" + driver(QByteArray("trange=\"off\"|") + soundDriver), ""},
    {"override_off", sizedDriver("\"off\"", "1280\t720"), "overrideSwitchedOff"},
    {"override_off_of_the_same_size", sizedDriver("\"off\"", "640\t480"), ""},
    {"override_on", sizedDriver("\"on\"", "1280\t720"), ""},
    {"frame_number_added", driver("vm_picture=/a.exr"), "frameNumberAdded"},
    {"frame_number_by_format", driver("vm_picture=/a.%04d.exr"), ""},
    {"number_sign", driver("vm_picture=/a#.$F4.exr"), "oddOutput"},
    {"blank_at_the_end_of_a_folder", driver("vm_picture=\"/b /a.$F4.exr\""), "oddOutput"},
    {"question_mark", driver("vm_picture=/a?.$F4.exr"), "oddOutput"},
    {"no_extension", driver("vm_picture=/a$F4"), "oddOutput"},
    {"cut", vxTest::openEntry({"a.init", "x"}).c_str(), "sceneCut"},
    {"variable_for_frame", driver("vm_picture=$FARM/a.exr"), "variableTakenForFrame"},
    {"frame_with_fraction", driver("vm_picture=/a.$FF.exr"), ""},
    {"undefined_variable", driver("vm_picture=$SHOW/a.$F4.exr"), "undefinedVariable"},
    {"undefined_variable_twice", driver("vm_picture=/$SHOW/$SHOW/a.$F4.exr"), "undefinedVariable"},
    {"node_called_like_a_wedge", driver("name=x", "out/wedge1"), ""},
    {"defined_variable", "set -g SHOW = '/show'\n" + driver("vm_picture=$SHOW/a.$F4.exr"), ""},
    {"second_frame_number", driver("vm_picture=/a.$F4/b.$F4.exr"), "secondFrameNumber"},
    {"expression_left", driver("vm_picture=/`padzero(4)`/a.$F4.exr"), "expressionLeft"},
    {"windows", driver("vm_picture=E:/a.$F4.exr"), "otherSystemPath"},
    {"relative", driver("vm_picture=render/a.%4d.exr"), "relativePath"},
    {"same_files", driver(soundDriver) + driver(soundDriver, "out/b"), "sameFiles"},
    {"other_frames_of_a_file",
     driver(QByteArray("trange=\"on\"|f=201\t300\t1|") + soundDriver, "out/b") +
         driver(QByteArray("trange=\"on\"|f=1\t200\t1|") + soundDriver),
     ""},
    {"file_node_without_frames", driver("file=/a.bgeo", "obj/geo1/file1"), "readsRatherThanWrites"},
    {"file_node", typeEntry("obj/geo1/a", "file") + driver("trange=\"on\"|file=/a.bgeo", "obj/geo1/a"),
     "readsRatherThanWrites"},
    {"temporary_export", driver("lopoutput=__render__.usd"), "temporaryExport"},
    {"unknown_take", "take name Main\n" + driver(QByteArray("take=grid|") + soundDriver), "takeUnknown"},
    {"wedge", driver(soundDriver) + driver("wedgemethod=channel|steps1=3", "out/wedge1"), "wedgeDropped"},
};

class Warning : public testing::TestWithParam<_warningCase> {};

TEST_P(Warning, IsGivenOnce) {
    const auto warnings = explained(GetParam().scene).warnings;
    EXPECT_EQ(plain(warnings.value(0).code), GetParam().code);
    EXPECT_LE(warnings.size(), 1);
    const auto jobs = warnings.value(0).jobs;
    EXPECT_EQ(std::adjacent_find(jobs.begin(), jobs.end(), std::greater_equal<>()), jobs.end());
}

INSTANTIATE_TEST_SUITE_P(Table, Warning, testing::ValuesIn(warningCases), vxTest::rowName);

// ---- bounds

_explanationBudget budgetWith(_share _explanationBudget::*share, qint64 amount) {
    _explanationBudget budget;
    budget.*share = _share(amount);
    budget.surveyStepsPerByte = 0;
    return budget;
}

QByteArray numbered(int count, const QByteArray& text) {
    QByteArray all;
    for (int i = 1; i <= count; ++i) all += QByteArray(text).replace('@', QByteArray::number(i));
    return all;
}

struct _boundCase {
    const char* what;
    QByteArray scene;
    _explanationBudget budget;
    qint64 _leftOut::*leftOut;
    qint64 (*kept)(const _explanation&);
    qint64 all;
};

constexpr auto keptSections = [](const _explanation& explanation) { return qint64{explanation.sections.size()}; };

const _boundCase boundCases[] = {
    {"sections_by_the_thousand", driver("", "out/").repeated(60'000), {}, &_leftOut::sections, keptSections, 60'000},
    {"names_of_a_section",
     driver(QByteArray("vm_picture=a|").repeated(300)),
     {},
     &_leftOut::details,
     [](const _explanation& explanation) { return qint64{explanation.sections.value(0).details.size()}; },
     300},
    {"nodes_that_nobody_knows", numbered(100, driver(frames, "x@")),
     budgetWith(&_explanationBudget::sectionBytes, 9000), &_leftOut::notRecognised,
     [](const _explanation& explanation) { return qint64{explanation.notRecognised.size()}; }, 100},
    {"warnings", numbered(100, driver("vm_picture=/$A@.$F.exr")), budgetWith(&_explanationBudget::warningBytes, 40'000),
     &_leftOut::warnings, [](const _explanation& explanation) { return qint64{explanation.warnings.size()} - 1; }, 100},
    {"cameras", numbered(100, driver("res=1\t1", "obj/cam@")), budgetWith(&_explanationBudget::factBytes, 9000),
     &_leftOut::cameras, [](const _explanation& explanation) { return qint64{explanation.facts.cameras.size()}; }, 100},
    {"tiny_channel_entries", numbered(100, "a@.chn {\n}\n"), budgetWith(&_explanationBudget::surveySteps, 2000),
     &_leftOut::bytes, nullptr, 1192},
};

class Bound : public testing::TestWithParam<_boundCase> {};

TEST_P(Bound, CutsTheExplanationAndCounts) {
    const auto [what, scene, budget, leftOut, kept, all] = GetParam();
    const _explanation explanation = explained(scene, budget);
    EXPECT_GT(explanation.leftOut.*leftOut, 0);
    if (kept != nullptr) {
        EXPECT_GT(kept(explanation), 0);
        EXPECT_EQ(kept(explanation) + explanation.leftOut.*leftOut, all);
    }
    EXPECT_LT(explanation.leftOut.*leftOut, all);
    EXPECT_EQ(plain(explanation.warnings.value(explanation.warnings.size() - 1).code), "explanationCut");
}

INSTANTIATE_TEST_SUITE_P(Table, Bound, testing::ValuesIn(boundCases), vxTest::rowName);

TEST(ExplainedLoad, KeepsRoomForDriversBehindManyNodes) {
    const auto sections = explained(driver("", "out/").repeated(60'000) + driver(soundDriver)).sections;
    EXPECT_EQ(sections.value(sections.size() - 1).jobs, QList<int>{1});
    EXPECT_EQ(sections.value(sections.size() - 1).line, 120'001);
}

}  // namespace
