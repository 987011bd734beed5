// Scenes with one fault each, and what is said about it.
#include "explain/explainedLoad.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QSet>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace {

using vxTest::driver;
using vxTest::param;
using vxTest::plain;

constexpr const char* soundDriver = "vm_picture=$HIP/a.$F4.exr";

QJsonObject explained(const QByteArray& scene) {
    vxTest::freshScanState();
    const vxTest::_sceneFolder folder;
    vxTest::_loader loader(folder.write(scene));
    QJsonObject explanation;
    vxE::loadExplained(loader.record(), explanation);
    return explanation;
}

QJsonObject first(const QJsonObject& explanation, const char* list) {
    return explanation[QLatin1String{list}].toArray().first().toObject();
}

std::string member(const QJsonObject& object, const char* name) {
    return plain(object[QLatin1String{name}].toString());
}

// ---- outcomes

struct _outcomeCase {
    const char* what;
    QByteArray scene;
    const char* code;
    const char* text;
};

const _outcomeCase outcomeCases[] = {
    {"job", driver(soundDriver), "", "job 1 Houdini"},
    {"export_and_render", driver("vm_picture=$HIP/a.$F4.exr|soho_outputmode=\"on\"|soho_diskfile=/a.$F4.ifd"), "",
     "job 1 Houdini/createIFD, job 2 Mantra_StdA waits for it"},
    {"viewer", driver("vm_picture=ip"), "viewerOnly", "output name is 'ip': renders to the viewer only"},
    {"no_name", driver("trange=\"on\""), "noOutput", "no output parameter"},
    {"empty_name", driver("vm_picture=\"\""), "emptyOutput", "output is empty"},
    {"expression", driver("sopoutput=`chs(\"x\")`"), "expression", "output holds an expression chs(\u2026)"},
    {"last_refused_counts", driver("vm_picture=\"\"|sopoutput=`chs(\"x\")`"), "expression",
     "output holds an expression chs(\u2026)"},
    {"default_name", driver("vm_picture=testfile.exr"), "defaultName", "default output testfile.exr"},
    {"export_without_file", driver("vm_picture=a.exr|soho_outputmode=\"on\"|soho_diskfile=\"\""), "noExportFile",
     "export is on but the export file is empty"},
    {"export_to_viewer", driver("vm_picture=a.exr|soho_outputmode=\"on\"|soho_diskfile=ip"), "noExportFile",
     "export is on but the export file is 'ip'"},
    {"export_without_parameter", driver("vm_picture=a.exr|soho_outputmode=\"on\""), "noExportFile",
     "export is on but there is no export file"},
    {"only_export", driver("lopoutput=$HIP/a.usd"), "noImage", "no output image: only an export file is named"},
    {"not_closed", "out/a.parm {\n" + param("vm_picture", "a.exr"), "notClosed", "section is not closed"},
    {"alembic_reader", driver("filename=a.abc|objectPath=/geo"), "notAnAlembicWriter",
     "not an Alembic writer: has objectPath"},
    {"camera", driver("res=1280\t720", "obj/cam1"), "", "kept as a camera"},
    {"helper_of_camera", driver("res=1\t1", "obj/cam1/xform1"), "notACamera", "camera name is excluded: holds 'xform'"},
    {"wedge", driver("driver=/out/a|wedgemethod=channel|steps1=3", "out/wedge1"), "", "kept: its driver is repeated"},
    {"wedge_by_take", driver("driver=/out/a|wedgemethod=take|steps1=3", "out/wedge1"), "wedgeMethod",
     "wedge method is 'take'"},
    {"wedge_by_wire", driver("driver=\"\"|wedgemethod=channel|steps1=3", "out/wedge1"), "wedgeWithoutDriver",
     "wedge names no driver: one that is wired to it is not known"},
    {"wedge_steps_follow", driver("driver=/out/a|wedgemethod=channel|steps1=[ steps1\t4 ]", "out/wedge1"), "wedgeSteps",
     "wedge's step counts are no numbers but channel references"},
    {"wedge_with_gaps", driver("driver=/out/a|wedgemethod=channel|steps2=4", "out/wedge1"), "wedgeChannels",
     "numbers of the wedge's channels have gaps"},
    {"wedge_without_channel", driver("driver=/out/a|wedgemethod=channel", "out/wedge1"), "wedgeWithoutVariants",
     "wedge varies nothing: no channel has steps"},
    {"wedge_left", driver("driver=/out/a|name=x", "out/wedge1"), "notAWedge", "no wedge: 'name' has no channel number"},
};

class Outcome : public testing::TestWithParam<_outcomeCase> {};

TEST_P(Outcome, IsTold) {
    const auto section = first(explained(GetParam().scene), "sections");
    EXPECT_EQ(member(section, "code"), GetParam().code);
    EXPECT_EQ(member(section, "text"), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Table, Outcome, testing::ValuesIn(outcomeCases), vxTest::rowName);

TEST(ExplainedLoad, PassesDriversOverBehindTooManyJobs) {
    QByteArray scene;
    for (int i = 0; i < 252; ++i) scene += driver(soundDriver, "out/a" + QByteArray::number(i));
    const auto sections = explained(scene)[QLatin1String{"sections"}].toArray();
    ASSERT_EQ(sections.size(), 252);
    EXPECT_EQ(member(sections.at(250).toObject(), "text"), "job 251 Houdini");
    EXPECT_EQ(member(sections.at(251).toObject(), "text"), "job array already held more than 250 jobs");
}

TEST(ExplainedLoad, TellsWhereASectionStands) {
    const QByteArray front = "x\r\n\n" + QByteArray(3 << 20, 'y') + "\nset -g A = 'b'\n";
    const auto section = first(explained(front + driver(soundDriver)), "sections");
    EXPECT_EQ(section[QLatin1String{"line"}].toInt(), 5);
    EXPECT_EQ(section[QLatin1String{"byte"}].toInt(), front.size());
    EXPECT_EQ(member(section, "node"), "/out/a");
}

// ---- sections that no reader takes

struct _strangerCase {
    const char* what;
    QByteArray path;
    const char* code;  // empty: it is not listed
};

const _strangerCase strangerCases[] = {
    {"other_root", "tasks/net/mantra1", "noRoot"},
    {"other_letter_case", "Out/mantra1", "noRoot"},
    {"no_mark", "obj/geo0/rop_fbx1", ""},  // taken: its path holds /geo
    {"no_mark_at_all", "obj/box/rop_fbx1", "noMark"},
    {"ruled_out", "stage/karmarenderproperties", "ruledOut"},
};

class Stranger : public testing::TestWithParam<_strangerCase> {};

TEST_P(Stranger, IsListedWithItsReason) {
    const QByteArray before = driver("res=1\t1", "obj/cam1");
    const auto explanation = explained(before + driver("trange=\"on\"|sopoutput=/a.fbx", GetParam().path));
    const auto list = explanation[QLatin1String{"notRecognised"}].toArray();
    ASSERT_EQ(list.size(), *GetParam().code == '\0' ? 0 : 1);
    if (list.isEmpty()) return;
    EXPECT_EQ(member(list.first().toObject(), "code"), GetParam().code);
    EXPECT_EQ(member(list.first().toObject(), "node"), "/" + GetParam().path.toStdString());
    EXPECT_EQ(list.first().toObject()[QLatin1String{"byte"}].toInt(), before.size());
}

INSTANTIATE_TEST_SUITE_P(Table, Stranger, testing::ValuesIn(strangerCases), vxTest::rowName);

TEST(ExplainedLoad, ListsNoNodeThatOnlyLooksLikeADriver) {
    const QByteArray reader = "obj/box/file1.init" + QByteArray(1, '\0') + "type = file\n";
    const auto explanation = explained(driver("sopoutput=/a.fbx", "obj/box/a") + driver("trange=\"on\"", "obj/box/b") +
                                       reader + driver("trange=\"on\"|file=/a.bgeo", "obj/box/file1"));
    EXPECT_TRUE(explanation[QLatin1String{"notRecognised"}].toArray().isEmpty());
}

// ---- warnings

QByteArray channels(const QByteArray& path, const QByteArray& f1, const QByteArray& f2) {
    return path + ".chn {\n  channel f1 {\n    segment { length = 0 value = 0 0 expr = " + f1 +
           " }\n  }\n  channel f2 {\n    segment { length = 0 value = 0 0 expr = " + f2 + " }\n  }\n}\n";
}

QByteArray framesDriver(const QByteArray& frames) {
    return driver("trange=\"on\"|f=" + frames + "|" + soundDriver);
}

struct _warningCase {
    const char* what;
    QByteArray scene;
    const char* code;  // empty: no warning
    const char* text;
};

const _warningCase warningCases[] = {
    {"sound", driver(soundDriver), "", ""},
    {"frames_in_wrong_order", framesDriver("9\t1\t1"), "framesUnusable", "no renderer accepts frames 9-1 step 1"},
    {"step_zero", framesDriver("[ f1\t1 ] \t190\t1"), "framesUnusable",
     "no renderer accepts frames 1-190 step 0: only f1 is driven by a channel ([ f1 1 ] 190 1)"},
    {"frames_by_expression", channels("out/a", "$FSTART", "$FEND") + framesDriver("[ f1\t0 ] \t[ f2\t0 ] \t1"),
     "framesByExpression", "frames are stored as 0-0: f1 follows $FSTART, f2 follows $FEND"},
    {"frames_of_another_scene",
     "frange 1001 1100\n" + channels("out/a", "$FSTART", "$FEND") + framesDriver("[ f1\t1 ] \t[ f2\t240 ] \t1"),
     "framesByExpression",
     "frames are stored as 1-240: f1 follows $FSTART, f2 follows $FEND, and the scene's are 1001-1100"},
    {"frames_of_this_scene",
     "frange 1 240\n" + channels("out/a", "$FSTART", "$FEND") + framesDriver("[ f1\t1 ] \t[ f2\t240 ] \t1"), "", ""},
    {"expression_of_another_node", channels("out/b", "$FSTART", "$FEND") + framesDriver("[ f1\t0 ] \t[ f2\t0 ] \t1"),
     "", ""},
    {"variable_for_frame", driver("vm_picture=$FARM/a.exr"), "variableTakenForFrame",
     "vm_picture holds $FARM, which becomes a frame number followed by ARM"},
    {"frame_with_fraction", driver("vm_picture=/a.$FF.exr"), "", ""},
    {"undefined_variable", driver("vm_picture=$SHOW/a.$F4.exr"), "undefinedVariable",
     "output holds $SHOW, which neither the scene nor the environment defines"},
    {"undefined_variable_twice", driver("vm_picture=/$SHOW/$SHOW/a.$F4.exr"), "undefinedVariable",
     "output holds $SHOW, which neither the scene nor the environment defines"},
    {"node_called_like_a_wedge", driver("name=x", "out/wedge1"), "", ""},
    {"defined_variable", "set -g SHOW = '/show'\n" + driver("vm_picture=$SHOW/a.$F4.exr"), "", ""},
    {"second_frame_number", driver("vm_picture=/a.$F4/b.$F4.exr"), "secondFrameNumber",
     "output holds a second frame number: only the first is filled in"},
    {"expression_left", driver("vm_picture=/`padzero(4)`/a.$F4.exr"), "expressionLeft",
     "output holds an expression in back-quotes, which only Houdini evaluates"},
    {"windows", driver("vm_picture=E:/a.$F4.exr"), "otherSystemPath",
     "output E:/a.####.exr is a path that only Windows has"},
    {"relative", driver("vm_picture=render/a.%4d.exr"), "relativePath",
     "output render/a.%4d.exr is relative: it was put behind the directory that vxscene runs in"},
    {"same_files", driver(soundDriver) + driver(soundDriver, "out/b"), "sameFiles",
     "jobs 1 and 2 write the same files: a.####.exr"},
    {"other_frames_of_a_file",
     driver(QByteArray("trange=\"on\"|f=201\t300\t1|") + soundDriver, "out/b") +
         driver(QByteArray("trange=\"on\"|f=1\t200\t1|") + soundDriver),
     "", ""},
    {"file_node_without_frames", driver("file=/a.bgeo", "obj/geo1/file1"), "readsRatherThanWrites",
     "probably reads its file rather than writes it: the node has no frame range"},
    {"temporary_export", driver("lopoutput=__render__.usd"), "temporaryExport",
     "lopoutput is __render__.usd, a file that Houdini writes for one render and then removes"},
    {"unknown_take", "take name Main\n" + driver(QByteArray("take=grid|") + soundDriver), "takeUnknown",
     "take grid is none of the scene's"},
    {"wedge", driver(soundDriver) + driver("wedgemethod=channel|steps1=3", "out/wedge1"), "wedgeDropped",
     "its driver is not repeated: wedge names no driver: one that is wired to it is not known"},
};

class Warning : public testing::TestWithParam<_warningCase> {};

TEST_P(Warning, IsGiven) {
    const auto warnings = explained(GetParam().scene)[QLatin1String{"warnings"}].toArray();
    const auto warning = warnings.first().toObject();
    EXPECT_EQ(member(warning, "code"), GetParam().code);
    EXPECT_EQ(member(warning, "text"), GetParam().text);
    EXPECT_LE(warnings.size(), 1);
    const auto jobs = warning[QLatin1String{"jobs"}].toVariant().toStringList();
    EXPECT_EQ(QSet<QString>(jobs.begin(), jobs.end()).size(), jobs.size()) << "a job is named twice";
}

INSTANTIATE_TEST_SUITE_P(Table, Warning, testing::ValuesIn(warningCases), vxTest::rowName);

}  // namespace
