// Small scenes loaded as Houdini reads them.
#include <gtest/gtest.h>

#include <algorithm>

#include "plugin/vxSceneParserHoudini.h"
#include "scan/scanObserver.h"
#include "tests/resolve/framesAndFile.h"
#include "tests/support/archiveText.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace {

using vxTest::_entryText;
using vxTest::framesAndFileOf;
using vxTest::plainOf;

/// A node: parameters in short (see `vxTest::params`), channels as "f1=$FSTART|f2=48", flags as "bypass on", the names
/// of the nodes that are wired to it as "a|b".
struct _testNode {
    std::string path;
    std::string type;
    QByteArray parameters;
    QByteArray channels{};
    std::string flags{};
    QByteArray inputs{};
};

std::string inputsOf(const _testNode& node) {
    std::string lines = "inputs\n{\n";
    int index = 0;
    for (const QByteArray& input : node.inputs.split('|'))
        if (!input.isEmpty()) lines += std::to_string(index++) + " \t" + input.toStdString() + " 0 1\n";
    return lines + "}\n";
}

/// What a take says of a parameter, in short, or of a flag.
struct _testOverride {
    std::string node;
    std::string name;
    QByteArray value;
};
struct _testTake {
    std::string name;
    std::vector<_testOverride> overrides;
};

std::string counted(const std::string& text) {
    std::string record;
    for (int shift = 24; shift >= 0; shift -= 8) record += static_cast<char>(text.size() >> shift);
    return record + text;
}

/// The first one is above the others.
std::string takeList(const std::vector<_testTake>& takes) {
    std::string text = "HoudiniTakeFile 1.0\n";
    int names = 0;
    for (const _testTake& take : takes) {
        text +=
            "take name " + take.name + " kids " + std::to_string(&take == takes.data() ? takes.size() - 1 : 0) + '\n';
        for (const _testOverride& override : take.overrides) {
            const std::string node = std::to_string(names++);
            const std::string name = std::to_string(names++);
            const bool isFlag = override.name[0] == '.';
            const std::string value =
                isFlag
                    ? override.value.toStdString()
                    : "{\nversion 0.8\n" + vxTest::param(override.name.c_str(), override.value).toStdString() + "}\n";
            text +=
                counted("s " + node + ' ' + override.node + '\n') + counted("s " + name + ' ' + override.name + '\n');
            text += counted("d " + node + ' ' + name + '\n' + counted(value));
        }
        text += counted("e\n");
    }
    return text;
}

void addNode(const _testNode& node, std::vector<_entryText>& entries) {
    if (!node.type.empty()) entries.push_back({node.path + ".init", "type = " + node.type + "\nmatchesdef = 1\n"});
    entries.push_back({node.path + ".def", "flags = " + node.flags + "\n" + inputsOf(node) + "end\n"});
    entries.push_back(
        {node.path + ".parm", "{\nversion 0.8\n" + vxTest::params(node.parameters).toStdString() + "}\n"});
    std::string channels = "{\n";
    for (const QByteArray& channel : node.channels.split('|')) {
        if (channel.isEmpty()) continue;
        const auto equals = channel.indexOf('=');
        channels += "channel " + channel.left(equals).toStdString() +
                    " {\n  segment { length = 0 value = 0 0 expr = " + channel.mid(equals + 1).toStdString() +
                    " }\n}\n";
    }
    if (!node.channels.isEmpty()) entries.push_back({node.path + ".chn", channels + "}\n"});
}

/// "driver renderer first-last path size @take <waits #wedge:variant": a job, as far as resolving it matters.
std::string textOf(const vxJ::_JobBasics_largePath& job) {
    std::string text =
        plainOf(job.layer) + ' ' + plainOf(job.app) + ' ' + plainOf(job.appRenderer) + ' ' + framesAndFileOf(job);
    if (job.imageWidth != 0) text += ' ' + std::to_string(job.imageWidth) + 'x' + std::to_string(job.imageHeight);
    if (!job.channel.isEmpty()) text += " @" + plainOf(job.channel);
    for (int i = 0; i < job.waitForPreIDCount; ++i)
        text += (i == 0 ? " <" : ",") + std::to_string(job.waitForPreIDs[i]);
    const auto ofWedge = [&](QLatin1String name) { return job.sceneSettings.customData_Str(name).toStdString(); };
    const std::string wedge = ofWedge(vxJ::CUSTOMWedge);
    if (!wedge.empty()) text += " #" + wedge + ':' + ofWedge(vxJ::CUSTOMVariant);
    return text;
}

std::vector<std::string> resolvedJobs(const QString& scene, qint32& code) {
    vxTest::freshScanState();
    vxTest::_loader loader(scene, {QStringLiteral("-HoudiniResolve")});
    code = pLoadSceneFile(&loader.record());
    std::vector<std::string> jobs;
    for (int i = 0; i < loader.count(); ++i) jobs.push_back(textOf(loader.job(i)));
    return jobs;
}

struct _case {
    const char* what;
    std::vector<_testNode> nodes;
    std::vector<std::string> jobs;
    std::vector<_testTake> takes{};
};

const QByteArray drivenFrames = "trange=\"normal\"|f=[ f1\t0 ] \t[ f2\t0 ] \t1|";

const _case cases[] = {
    {"frames_by_expression",
     {{"out/a", "ifd", drivenFrames + "vm_picture=/i/a.$F4.exr", "f1=$FSTART|f2=\"$FEND - 8\""}},
     {"/out/a Houdini  11-40 /i/a.####.exr"}},
    {"frames_that_only_python_knows",
     {{"out/a", "ifd", "trange=\"on\"|f=[ f1\t7 ] \t[ f2\t0 ] \t1|vm_picture=/i/a.$F.exr",
       "f1=\"hou.frame()\" language = python|f2=\"hou.frame()\" language = python"}},
     {"/out/a Houdini  7-48 /i/a.#.exr"}},
    {"name_by_reference",
     {{"obj/g/store", "filecache::2.0", "loadfromdisk=\"off\"|sopoutput=[ sopoutput\told ]|file=/c/$OS.$F4.bgeo",
       "sopoutput=chs(\\\"file\\\")"}},
     {"/obj/g/store Houdini geometry 11-48 /c/store.####.bgeo"}},
    {"frame_number_by_expression",
     {{"obj/g/w", "rop_geometry", "sopoutput=\"/c/a.`padzero(5, $F)`.bgeo\""}},
     {"/obj/g/w Houdini geometry 11-48 /c/a.#####.bgeo"}},
    {"variables_that_begin_like_the_frame",
     {{"out/a", "ifd", "vm_picture=/i/$FARM/${Farm}.$F4.exr|soho_outputmode=\"on\"|soho_diskfile=/x/$FARM.$FEND.ifd"}},
     {"/out/a Houdini createIFD 11-48 /x/$FARM.48.ifd", "/out/a Mantra_StdA  11-48 /i/$FARM/$Farm.####.exr <1"}},
    {"one_file_for_all_frames",
     {{"obj/g/fbx", "rop_fbx", "sopoutput=/c/a.fbx"}, {"stage/usd", "usd_rop", "lopoutput=/c/a.usd"}},
     {"/obj/g/fbx Houdini geometry 11-48 /c/a.fbx", "/stage/usd Houdini createUSD 11-48 /c/a.usd"}},
    {"a_camera_by_its_type_and_a_driver_with_a_camera_s_name",
     {{"obj/layout/view", "cam", "res=1920\t800"},
      {"out/cam_out", "alembic", "filename=/c/cam.abc"},
      {"out/a", "ifd",
       "vm_picture=/i/a.$F4.exr|camera=../../obj/layout/view|override_camerares=\"off\"|"
       "res_override=10\t10"},
      {"out/b", "ifd",
       "vm_picture=/i/b.$F4.exr|camera=/obj/layout/view|override_camerares=\"on\"|"
       "res_override=10\t10|res_fraction=\"0.5\""},
      {"out/c", "ifd",
       "vm_picture=/i/c.$F4.exr|camera=/obj/layout/view|override_camerares=\"on\"|"
       "res_override=10\t20|res_fraction=\"specific\""}},
     {"/out/cam_out Houdini alembic-singleFile 11-48 /c/cam.abc", "/out/a Houdini  11-48 /i/a.####.exr 1920x800",
      "/out/b Houdini  11-48 /i/b.####.exr 960x400", "/out/c Houdini  11-48 /i/c.####.exr 10x20"}},
    {"nodes_that_write_nothing",
     {{"out/a", "ifd", "vm_picture=/i/a.$F4.exr", "", "bypass on"},
      {"obj/g/filecache1", "filecache", "loadfromdisk=\"on\"|file=/c/a.bgeo"},
      {"obj/geo1/file1", "file", "file=/c/a.bgeo"},
      {"obj/geo1/sim/output", "output", "dopoutput=/c/a.sim"},
      {"out/viewer", "ifd", "vm_picture=ip"}},
     {}},
    {"a_take_with_values_of_its_own",
     {{"obj/near", "cam", "res=10\t10"},
      {"obj/far", "cam", "res=20\t20"},
      {"out/a", "ifd", "vm_picture=/i/a.$F4.exr|camera=/obj/near|" + drivenFrames, "f1=$FSTART|f2=$FEND"},
      {"out/b", "ifd", "vm_picture=/i/`chs(\\\"../a/camera\\\")`/b.exr|take=far"},
      {"out/c", "ifd", "vm_picture=/i/c.exr"},
      {"out/d", "ifd", "vm_picture=/i/d.exr", "", "bypass on"}},
     {"/out/a Houdini  11-48 /i/a.####.exr 10x10", "/out/b Houdini  11-48 /i/obj/far/b.exr @far",
      "/out/c Houdini  11-48 /i/c.exr", "/out/a Houdini  11-48 /i/a.####.exr 10x10 @Main",
      "/out/a Houdini  3-5 /i/a.####.exr 20x20 @far", "/out/c Houdini  11-48 /i/c.exr @Main",
      "/out/d Houdini  11-48 /i/d.exr @far"},
     {{"Main", {{"/out/a", "camera", "/obj/near"}}},
      {"far",
       {{"/out/a", "camera", "/obj/far"},
        {"/out/a", "f", "3\t5\t1"},
        {"/out/c", ".flags.b", "on"},
        {"/out/d", ".flags.b", "off"}}}}},
    {"an_export_in_one_take",
     {{"out/a", "ifd", "vm_picture=/i/a.exr|soho_outputmode=\"off\"|soho_diskfile=/x/a.ifd"},
      {"out/b", "ifd", "vm_picture=/i/b.exr", "", "", "a"}},
     {"/out/a Houdini  11-48 /i/a.exr", "/out/b Houdini  11-48 /i/b.exr <1", "/out/a Houdini  11-48 /i/a.exr @Main",
      "/out/a Houdini createIFD 11-48 /x/a.ifd @far", "/out/a Mantra_StdA  11-48 /i/a.exr @far <4",
      "/out/b Houdini  11-48 /i/b.exr @Main <3", "/out/b Houdini  11-48 /i/b.exr @far <4"},
     {{"Main", {}}, {"far", {{"/out/a", "soho_outputmode", "\"on\""}}}}},
    {"wires_through_nodes_that_write_nothing",
     {{"out/last", "ifd", "vm_picture=/i/last.exr", "", "", "all|chosen|sub"},
      {"out/all", "merge", "", "", "", "one|circle|viewer"},
      {"out/circle", "null", "", "", "", "all"},
      {"out/viewer", "ifd", "vm_picture=ip", "", "", "elsewhere"},
      {"out/elsewhere", "fetch", "source=/obj/g/store"},
      {"out/chosen", "switch", "index=[ index\t0 ]", "index=\"2 - 1\"", "", "one|two"},
      {"out/sub", "subnet", "", "", "", "two"},
      {"out/sub/in", "ifd", "vm_picture=/i/in.exr", "", "", "(0)"},
      {"out/one", "ifd", "vm_picture=/i/one.exr|soho_outputmode=\"on\"|soho_diskfile=/x/one.ifd", "", "", "two"},
      {"out/two", "ifd", "vm_picture=/i/two.exr"},
      {"obj/g/store", "filecache", "file=/c/a.bgeo", "", "", "before"},
      {"obj/g/before", "filecache", "file=/c/b.bgeo"}},
     {"/out/two Houdini  11-48 /i/two.exr", "/out/one Houdini createIFD 11-48 /x/one.ifd <1",
      "/out/one Mantra_StdA  11-48 /i/one.exr <2", "/obj/g/store Houdini geometry 11-48 /c/a.bgeo",
      "/out/sub/in Houdini  11-48 /i/in.exr <1", "/out/last Houdini  11-48 /i/last.exr <1,3,4,5",
      "/obj/g/before Houdini geometry 11-48 /c/b.bgeo"}},
    {"a_wedge_with_its_driver_wired_to_it",
     {{"out/w", "wedge",
       "prefix=p|driver=\"\"|wedgemethod=\"channel\"|name1=n|range1=[ range1x\t0 ] \t2|steps1=[ steps1\t0 ]",
       "range1x=\"0.5 * 2\"|steps1=\"5 / 2\"", "", "f"},
      {"out/f", "fetch", "source=../a/RENDER"},
      {"out/a", "ifd", "vm_picture=/i/$WEDGE.exr"}},
     {"/out/a Houdini  11-48 /i/.exr", "/out/a Houdini  11-48 /i/p_n_1.000000.exr #/out/w:0",
      "/out/a Houdini  11-48 /i/p_n_2.000000.exr #/out/w:1"}},
    {"a_wedge_over_several_drivers_with_its_values_in_their_names",
     {{"out/w", "wedge", "prefix=p|driver=\"\"|wedgemethod=\"channel\"|chan1=../ctl/vx|name1=n|range1=1\t2|steps1=2",
       "", "", "a|b"},
      {"out/ctl", "null", "v=[ vx\t0 ] \t5", "vx=\"3 * 3\""},
      {"out/a", "ifd",
       "vm_picture=\"/i/a`ch('../ctl/vx')`.exr\"|soho_outputmode=\"on\"|soho_diskfile=\"/x/a`ch('../ctl/vx')`.ifd\""},
      {"out/b", "ifd", "vm_picture=/i/b$WEDGENUM.exr", "", "", "a"}},
     {"/out/a Houdini createIFD 11-48 /x/a9.ifd", "/out/a Mantra_StdA  11-48 /i/a9.exr <1",
      "/out/b Houdini  11-48 /i/b.exr <2", "/out/a Houdini createIFD 11-48 /x/a1.ifd #/out/w:0",
      "/out/a Houdini createIFD 11-48 /x/a2.ifd #/out/w:1", "/out/a Mantra_StdA  11-48 /i/a1.exr <4 #/out/w:0",
      "/out/a Mantra_StdA  11-48 /i/a2.exr <5 #/out/w:1", "/out/b Houdini  11-48 /i/b0.exr <6 #/out/w:0",
      "/out/b Houdini  11-48 /i/b1.exr <7 #/out/w:1"}},
    {"wedges_in_takes_and_one_of_a_single_variant",
     {{"out/all", "wedge",
       "prefix=p|driver=/out/a|wedgemethod=\"channel\"|chan1=/out/a/f2|name1=n|range1=20\t21|steps1=2"},
      {"out/one", "wedge",
       "prefix=p|driver=/out/a|wedgemethod=\"channel\"|chan1=/out/a/f2|name1=n|range1=20\t21|steps1=2|"
       "wrange=\"single\"|wedgenum=[ wedgenum\t0 ]",
       "wedgenum=\"3 - 2\""},
      {"out/a", "ifd", drivenFrames + "vm_picture=\"/i/`chs('../dir/name')`.exr\"", "f1=$FSTART|f2=$FEND"},
      {"out/dir", "null", "name=x"}},
     {"/out/a Houdini  11-48 /i/x.exr", "/out/a Houdini  11-48 /i/x.exr @Main", "/out/a Houdini  11-40 /i/y.exr @far",
      "/out/a Houdini  11-20 /i/x.exr #/out/all:0", "/out/a Houdini  11-21 /i/x.exr #/out/all:1",
      "/out/a Houdini  11-21 /i/x.exr #/out/one:1", "/out/a Houdini  11-20 /i/x.exr @Main #/out/all:0",
      "/out/a Houdini  11-21 /i/x.exr @Main #/out/all:1", "/out/a Houdini  11-21 /i/x.exr @Main #/out/one:1",
      "/out/a Houdini  11-20 /i/y.exr @far #/out/all:0", "/out/a Houdini  11-21 /i/y.exr @far #/out/all:1",
      "/out/a Houdini  11-21 /i/y.exr @far #/out/one:1"},
     {{"Main", {}}, {"far", {{"/out/dir", "name", "y"}, {"/out/a", "f", "[ f1\t0 ] \t40\t1"}}}}},
    {"a_switch_that_a_take_and_a_wedge_turn",
     {{"out/c", "ifd", "vm_picture=/i/c.exr", "", "", "s"},
      {"out/s", "switch", "index=0", "", "", "a|b"},
      {"out/a", "ifd", "vm_picture=/i/a.exr"},
      {"out/b", "ifd", "vm_picture=/i/b.exr"},
      {"out/w", "wedge",
       "prefix=p|driver=/out/c|wedgemethod=\"channel\"|chan1=/out/s/index|name1=n|range1=0\t1|steps1=2"}},
     {"/out/a Houdini  11-48 /i/a.exr", "/out/b Houdini  11-48 /i/b.exr", "/out/c Houdini  11-48 /i/c.exr <1",
      "/out/a Houdini  11-48 /i/a.exr @Main", "/out/a Houdini  11-48 /i/a.exr @far",
      "/out/b Houdini  11-48 /i/b.exr @Main", "/out/b Houdini  11-48 /i/b.exr @far",
      "/out/c Houdini  11-48 /i/c.exr @Main <4", "/out/c Houdini  11-48 /i/c.exr @far <7",
      "/out/c Houdini  11-48 /i/c.exr <1 #/out/w:0", "/out/c Houdini  11-48 /i/c.exr <2 #/out/w:1",
      "/out/c Houdini  11-48 /i/c.exr @Main <4 #/out/w:0", "/out/c Houdini  11-48 /i/c.exr @Main <6 #/out/w:1",
      "/out/c Houdini  11-48 /i/c.exr @far <5 #/out/w:0", "/out/c Houdini  11-48 /i/c.exr @far <7 #/out/w:1"},
     {{"Main", {}}, {"far", {{"/out/s", "index", "1"}}}}},
    {"a_wedge_of_random_values",
     {{"out/w", "wedge",
       "prefix=p|driver=/out/a|wedgemethod=\"channel\"|random=\"on\"|numrandom=[ numrandom\t0 "
       "]|chan1=/out/ctl/v|name1=n|"
       "range1=1\t2|steps1=5",
       "numrandom=\"1 + 1\""},
      {"out/ctl", "null", "v=5"},
      {"out/a", "ifd", "vm_picture=\"/i/a`ch('../ctl/v')`_$WEDGENUM$WEDGE.exr\""}},
     {"/out/a Houdini  11-48 /i/a5_.exr", "/out/a Houdini  11-48 /i/a`ch('../ctl/v')`_0$WEDGE.exr #/out/w:0",
      "/out/a Houdini  11-48 /i/a`ch('../ctl/v')`_1$WEDGE.exr #/out/w:1"}},
    {"a_fetch_that_a_take_turns_to_a_later_driver",
     {{"out/last", "ifd", "vm_picture=/i/last.exr", "", "", "f"},
      {"out/f", "fetch", "source=/out/a"},
      {"out/a", "ifd", "vm_picture=/i/a.exr"},
      {"out/b", "ifd", "vm_picture=/i/b.exr"}},
     {"/out/a Houdini  11-48 /i/a.exr", "/out/b Houdini  11-48 /i/b.exr", "/out/last Houdini  11-48 /i/last.exr <1",
      "/out/a Houdini  11-48 /i/a.exr @Main", "/out/a Houdini  11-48 /i/a.exr @far",
      "/out/b Houdini  11-48 /i/b.exr @Main", "/out/b Houdini  11-48 /i/b.exr @far",
      "/out/last Houdini  11-48 /i/last.exr @Main <4", "/out/last Houdini  11-48 /i/last.exr @far <7"},
     {{"Main", {}}, {"far", {{"/out/f", "source", "/out/b"}}}}},
    {"an_image_that_the_stage_s_settings_name",
     {{"stage/set", "karmarendersettings", "primpath=/Render/a|picture=/i/`opname(\\\".\\\")`.$F4.exr"},
      {"stage/other", "rendersettings", "primpath=/Render/b|picture=/i/b.exr", "", "", "set"},
      {"stage/end", "null", "", "", "", "other"},
      {"out/a", "usdrender",
       "outputimage=\"\"|loppath=/stage/end|rendersettings=/Render/a|"
       "lopoutput=$HIP/__render__.usd"},
      {"stage/b", "usdrender_rop", "outputimage=\"\"|loppath=\"\"", "", "", "end"}},
     {"/out/a Houdini  11-48 /i/set.####.exr"}},
    {"drivers_of_third_parties_and_other_networks",
     {{"out/motion", "gamedev::rop_motion_vectors", "f=5\t9\t1|vm_picture=/i/a.$F4.exr"},
      {"obj/g/points", "labs::niagara::2.0", "range_mode=\"off\"|f=5\t9\t1|outputpath=/c/a.hbjson"},
      {"obj/g/cache", "filecache::2.0", "sopoutput=/c/a.$F4.bgeo|file=/c/old.bgeo"},
      {"tasks/t/render", "ropmantra",
       "vm_picture=/i/t.$F4.exr|" + drivenFrames + "soho_outputmode=[ soho_outputmode\t0 ]|soho_diskfile=/x/t.ifd",
       "f1=2|f2=3|soho_outputmode=1"},
      {"tasks/t/fetched", "ropfetch", "roppath=/out/motion"},
      {"tasks/t/last", "ropfbx", "sopoutput=/c/t.fbx", "", "", "fetched"},
      {"obj/g/hero", "kinefx::rop_fbxcharacteroutput", "sopoutput=/c/hero.fbx"},
      {"stage/viewer", "usdrender_rop", "outputimage=md|lopoutput=/c/a.usd"},
      {"mat/image", "image", "file=/i/read.exr"}},
     {"/out/motion Houdini  5-9 /i/a.####.exr", "/obj/g/points Houdini geometry 11-48 /c/a.hbjson",
      "/obj/g/cache Houdini geometry 11-48 /c/a.####.bgeo", "/tasks/t/render Houdini createIFD 2-3 /x/t.ifd",
      "/tasks/t/render Mantra_StdA  2-3 /i/t.####.exr <4", "/tasks/t/last Houdini geometry 11-48 /c/t.fbx <1",
      "/obj/g/hero Houdini geometry 11-48 /c/hero.fbx"}},
    {"a_node_of_unknown_type_by_its_path",
     {{"out/a", "", "vm_picture=/i/a.$F4.exr"}},
     {"/out/a Houdini  11-48 /i/a.####.exr"}},
};

class ResolvedLoad : public testing::TestWithParam<_case> {};

QByteArray sceneOf(const std::vector<_testNode>& nodes, const std::vector<_testTake>& takes = {}) {
    std::vector<_entryText> entries{{".start", "fps 24\ntcur 0\ntset 0.41666666666 2\nfrange 11 48\n"},
                                    {".variables", "set -g _HIP_SAVEVERSION = '20.5.370'\n"}};
    for (const _testNode& node : nodes) addNode(node, entries);
    if (!takes.empty()) entries.push_back({".takes", takeList(takes)});
    return QByteArray::fromStdString(vxTest::openArchive(entries));
}

TEST_P(ResolvedLoad, GivesTheJobsThatHoudiniWouldRun) {
    const vxTest::_sceneFolder folder;
    const QString scene = folder.write(sceneOf(GetParam().nodes, GetParam().takes));
    qint32 code = 0;
    EXPECT_EQ(resolvedJobs(scene, code), GetParam().jobs);
    EXPECT_TRUE(code == 1 || (code == 25 && GetParam().jobs.empty())) << code;
}

INSTANTIATE_TEST_SUITE_P(Table, ResolvedLoad, testing::ValuesIn(cases), vxTest::rowName);

/// Keeps what was computed: "node/parameter: expression, stored = value", or "? reason" in place of a value.
class _computedValues : public vxP::_scanObserver {
 public:
    _computedValues() { vxP::scanObserver = this; }
    _computedValues(const _computedValues&) = delete;
    _computedValues& operator=(const _computedValues&) = delete;
    ~_computedValues() override { vxP::scanObserver = nullptr; }

    void sectionBegins(qint64 /*byte*/, qint32 /*jobs*/) override {}
    void readerTakes(vxP::_sectionReader /*reader*/, const QString& /*nodePath*/) override {}
    void parameter(const QString& /*line*/) override {}
    void remark(vxP::_remark /*what*/, const QString& /*line*/, const QString& /*detail*/) override {}
    void sectionEnds(qint32 /*jobs*/) override {}
    void resolved(const vxP::_resolvedValue& value) override {
        const QString result =
            value.reason.isEmpty() ? QLatin1String(" = ") + value.value : QLatin1String(" ? ") + value.reason;
        texts.push_back((value.node + QLatin1Char('/') + value.parameter + QLatin1String(": ") + value.expression +
                         QLatin1String(", ") + value.stored + result)
                            .toStdString());
    }

    std::vector<std::string> texts;
};

TEST(ResolvedValues, AreToldWithTheirExpressionsAndWhatWasStored) {
    const vxTest::_sceneFolder folder;
    const QString scene = folder.write(sceneOf({
        {"out/a", "ifd",
         "trange=\"normal\"|f=[ f1\t0 ] \t[ f2\t7 ] \t1|vm_picture=\"/i/`opname('.')`.$F4.exr\"|camera=/obj/cam1",
         "f1=$FSTART|f2=npoints(0)"},
        {"obj/cam1", "cam", "res=[ resx\t640 ] \t800", "resx=2*960"},
    }));
    const _computedValues told;
    qint32 code = 0;
    resolvedJobs(scene, code);
    const std::vector<std::string> expected{
        "/out/a/f1: $FSTART, 0 = 11",
        "/out/a/f2: npoints(0), 7 ? needs geometry, which only cooking makes (npoints)",
        "/out/a/vm_picture: /i/`opname('.')`.$F4.exr,  = /i/a.$F4.exr",
        "/obj/cam1/resx: 2*960, 640 = 1920",
        "/obj/cam1/resx: 2*960, 640 = 1920",
    };
    EXPECT_EQ(told.texts, expected);
}

/// A driver behind 40 others, in the scene's take and eight more: records have room for 32 waits, and numbers repeat.
TEST(ResolvedWaits, ListThoseThatARecordCannotName) {
    constexpr int before = 40;
    constexpr int takes = 8;
    std::vector<_entryText> entries;
    _testNode last{"out/last", "ifd", "vm_picture=/i/last.exr"};
    for (int i = 0; i < before; ++i) {
        last.inputs += "d" + QByteArray::number(i) + '|';
        addNode({"out/d" + std::to_string(i), "ifd", "vm_picture=/i/d.exr"}, entries);
    }
    addNode(last, entries);
    std::vector<_testTake> list;
    for (int i = 0; i < takes; ++i) list.push_back({"t" + std::to_string(i), {}});
    entries.push_back({".takes", takeList(list)});
    const vxTest::_sceneFolder folder;
    vxTest::freshScanState();
    vxTest::_loader loader(folder.write(QByteArray::fromStdString(vxTest::openArchive(entries))),
                           {QStringLiteral("-houdiniResolve")});
    ASSERT_EQ(pLoadSceneFile(&loader.record()), vxP::resultSuccess);
    ASSERT_EQ(loader.count(), (before + 1) * (takes + 1));
    for (int i = 0; i < loader.count(); ++i) {
        const auto& job = loader.job(i);
        if (plainOf(job.layer) != "/out/last") continue;
        const QStringList positions = job.sceneSettings.customData_Str(vxJ::CUSTOMWaitsFor).split(QLatin1Char(' '));
        ASSERT_EQ(positions.size(), before);
        for (const QString& position : positions)
            EXPECT_EQ(plainOf(loader.job(position.toInt() - 1).channel), plainOf(job.channel));
        const int reach =
            static_cast<int>(std::count_if(positions.begin(), positions.end(),
                                           [&](const QString& position) { return i + 1 - position.toInt() < 256; }));
        EXPECT_EQ(job.waitForPreIDCount, std::min(reach, vxJ::waitForPreIDCapacity)) << i;
    }
}

}  // namespace
