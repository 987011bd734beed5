#include "drivers/outNode.h"

#include <gtest/gtest.h>

#include "scan/scanState.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;
using vxTest::params;
using vxTest::plain;
using vxTest::plainOf;
using vxTest::scanned;

TEST(OutNode, TakesItsPathFromTheHeader) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    for (const auto& [header, path] : {std::pair{"stage/a/out/b.parm.parm {", "/out/b"},
                                       {"obj/a/img/b/stage/c.parm {", "/stage/c"},
                                       {"obj/a/img/b.parm {", "/img/b"},
                                       {"x obj/geo1.parm {", "/obj/geo1"},
                                       {"x.parm out/no_end_of_path", "/out/no_end_of_path"}}) {
        QTextStream stream(params("vm_picture=/i") + "}\n");
        QString line = vxTest::wide(header);
        bool activeTakeUsed = false;
        EXPECT_EQ(loadOutNode(&loader.record(), stream, line, activeTakeUsed, 19, {}), resultSuccess);
        EXPECT_EQ(plainOf(loader.job(loader.count() - 1).layer), path) << header;
    }
}

TEST(OutNode, BecomesAnExportJobAndAJobThatWaitsForIt) {
    const auto loader =
        scanned(driver("vm_picture=/i/a.exr") +
                driver("vm_picture=/i/$OS.$F4.exr|res_override=640\t480|trange=\"on\"|f=5\t10\t2|render_export_mode=2|"
                       "ar_aov_separate_file3=/s/$OS.$F4.png|ar_aov_separate_file2=/d/$OS.png|"
                       "render_export_filepath=/x/$OS.vrscene",
                       "out/b_sim_"));
    ASSERT_EQ(loader->count(), 3);
    const auto& [first, second] = std::tie(loader->job(1), loader->job(2));
    EXPECT_EQ(vxTest::outputOf(first), "/x/|b_sim_.vrscene|");
    EXPECT_EQ(std::tuple(first.preID, first.waitForPreIDCount), std::tuple(2, 0));
    EXPECT_EQ(std::tuple(second.preID, second.waitForPreIDCount, second.waitForPreIDs[0]), std::tuple(3, 1, 2));
    EXPECT_EQ(plainOf(second.layer), "/out/b_sim_");
    EXPECT_EQ(vxTest::outputOf(second), "/i/|b_sim_.|.exr");
    EXPECT_TRUE(first.imageSingleOutputFile && !second.imageSingleOutputFile);
    EXPECT_EQ(std::tuple(second.imageHeight, second.sceneSettings.seqEnd + 0), std::tuple(480, 10));
    EXPECT_TRUE(mantraIFDJob);
    // Pass files are the rendering job's.
    const std::string files[] = {"", "", "/d/b_sim_", "/s/b_sim_."};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(plainOf(loader->job(1 + i / 2).channels[i % 2].fileName), files[i]);
    // A simulation is not distributed; rendering it is.
    EXPECT_EQ(plain(first.sceneSettings.customData_AllAsString()),
              "vxSubmitterPluginVersion= 8.4.00\nvxSubmitterParameter= \"RenderPreviewFirst=0~0\" "
              "\"DistributeStartToEnd=0~1\" \"MaxClientsAtATime=0~1\" \"SeqDivMIN=0~0\"\n");
    EXPECT_EQ(plain(second.sceneSettings.customData_AllAsString()), "vxSubmitterPluginVersion= 8.4.00\n");
}

TEST(OutNode, MustHaveAUsableOutput) {
    for (const auto& [text, jobs, empty] : {std::tuple{driver("vm_picture=/i"), 1, false},
                                            {driver("soho_diskfile=/x"), 0, true},
                                            {driver("vm_picture=\"ip\""), 0, true},
                                            {driver("vm_picture=/i|soho_outputmode=on"), 0, true},
                                            {driver("vm_picture=/i|soho_outputmode=on|soho_diskfile=ip"), 0, true},
                                            {driver("soho_outputmode=on|soho_diskfile=/x"), 0, true},
                                            {"out/a.parm {\n" + params("vm_picture=/i"), 0, false}}) {  // cut off
        SCOPED_TRACE(text.data());
        EXPECT_EQ(scanned(text)->count(), jobs);
        EXPECT_EQ(emptyNodesfound, empty);
        EXPECT_EQ(nodeActiveTakes.size(), jobs);
    }
}

TEST(OutNode, IsReadUpTo250JobsAndWhileThereIsRoom) {
    for (const auto& [before, code, after] :
         {std::tuple{251, qint32{resultSuccess}, 251}, {250, resultSuccess, 251}, {-1, resultNoMoreJobs, 0}}) {
        vxTest::freshScanState();
        vxTest::_loader loader;
        loader.array().count = before;  // the host's number may be any
        EXPECT_EQ(loader.scan(driver("vm_picture=/i") + driver("vm_picture=/i")), code);
        EXPECT_EQ(loader.count(), after);
        EXPECT_EQ(nodeActiveTakes.size(), after == 251 && before == 250 ? 1 : 0);
    }
}

}  // namespace

}  // namespace vxP
