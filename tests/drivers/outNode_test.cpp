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

class OutNode : public testing::Test {
 protected:
    void SetUp() override { vxTest::freshScanState(); }

    /// Reads one section with a header of any form. @return what is left of the text
    QString readBehind(const char* header, const QByteArray& text) {
        QTextStream stream(text);
        QString line = vxTest::wide(header);
        bool activeTakeUsed = false;
        EXPECT_EQ(loadOutNode(&loader.record(), stream, line, activeTakeUsed, 19, QStringLiteral("5640")),
                  resultSuccess);
        return stream.readAll();
    }

    vxTest::_loader loader;
};

TEST_F(OutNode, TakesItsPathFromTheHeader) {
    for (const auto& [header, path] : {std::pair{"stage/a/out/b.parm.parm {", "/out/b"},
                                       {"obj/a/img/b/stage/c.parm {", "/stage/c"},
                                       {"obj/a/img/b.parm {", "/img/b"},
                                       {"x obj/geo1.parm {", "/obj/geo1"},
                                       {"x.parm out/no_end_of_path", "/out/no_end_of_path"}}) {
        readBehind(header, params("vm_picture=/i") + "}\n");
        EXPECT_EQ(plainOf(loader.job(loader.count() - 1).layer), path) << header;
    }
}

TEST_F(OutNode, BecomesAnExportJobAndAJobThatWaitsForIt) {
    loader.scan(driver("vm_picture=/i/a.exr") +
                driver("vm_picture=/i/$OS.$F4.exr|res_override=640\t480|trange=\"on\"|f=5\t10\t2|render_export_mode=2|"
                       "ar_aov_separate_file3=/s/$OS.$F4.png|ar_aov_separate_file2=/d/$OS.png|"
                       "render_export_filepath=/x/$OS.vrscene",
                       "out/b_sim_"));
    ASSERT_EQ(loader.count(), 3);
    const auto& first = loader.job(1);
    const auto& second = loader.job(2);
    EXPECT_EQ(vxTest::outputOf(first), "/x/|b_sim_.vrscene|");
    EXPECT_EQ(std::tuple(first.preID, first.waitForPreIDCount), std::tuple(2, 0));
    EXPECT_EQ(std::tuple(second.preID, second.waitForPreIDCount, second.waitForPreIDs[0]), std::tuple(3, 1, 2));
    EXPECT_EQ(plainOf(second.layer), "/out/b_sim_");
    EXPECT_EQ(vxTest::outputOf(second), "/i/|b_sim_.|.exr");
    EXPECT_TRUE(first.imageSingleOutputFile && !second.imageSingleOutputFile);
    EXPECT_EQ(std::tuple(second.imageHeight, second.sceneSettings.seqEnd), std::tuple(480, 10));
    EXPECT_TRUE(mantraIFDJob);
    // Pass files are the rendering job's.
    const std::string files[] = {"", "", "/d/b_sim_", "/s/b_sim_."};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(plainOf(loader.job(1 + i / 2).channels[i % 2].fileName), files[i]);
    // A simulation is not distributed; rendering it is.
    EXPECT_EQ(plain(first.sceneSettings.customData_AllAsString()),
              "vxSubmitterPluginVersion= 8.4.00\nvxSubmitterParameter= \"RenderPreviewFirst=0~0\" "
              "\"DistributeStartToEnd=0~1\" \"MaxClientsAtATime=0~1\" \"SeqDivMIN=0~0\"\n");
    EXPECT_EQ(plain(second.sceneSettings.customData_AllAsString()), "vxSubmitterPluginVersion= 8.4.00\n");
}

struct _outputCase {
    const char *what, *lines;
    int jobs;
    bool empty;
    const char* end = "}\n";
};

constexpr _outputCase outputCases[] = {
    {"image", "vm_picture=/i", 1, false},
    {"export_without_switch", "soho_diskfile=/x", 0, true},
    {"viewer", "vm_picture=\"ip\"", 0, true},
    {"switch_without_export", "vm_picture=/i|soho_outputmode=on", 0, true},
    {"export_to_the_viewer", "vm_picture=/i|soho_outputmode=on|soho_diskfile=ip", 0, true},
    {"export_without_image", "soho_outputmode=on|soho_diskfile=/x", 0, true},
    {"cut_off", "vm_picture=/i", 0, false, ""},
};

class DriverOutput : public testing::TestWithParam<_outputCase> {};

TEST_P(DriverOutput, MustBeUsable) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    EXPECT_EQ(loader.scan("out/a.parm {\n" + params(GetParam().lines) + GetParam().end), resultSuccess);
    EXPECT_EQ(loader.count(), GetParam().jobs);
    EXPECT_EQ(emptyNodesfound, GetParam().empty);
    EXPECT_EQ(nodeActiveTakes.size(), GetParam().jobs);
}

INSTANTIATE_TEST_SUITE_P(Table, DriverOutput, testing::ValuesIn(outputCases), vxTest::rowName);

TEST_F(OutNode, IsNotReadBehindMoreThan250Jobs) {
    const QByteArray text = params("vm_picture=/i") + "}\n";
    loader.array().count = 251;
    EXPECT_EQ(readBehind("out/a.parm {", text), QString::fromUtf8(text));
    EXPECT_EQ(loader.count(), 251);
    loader.array().count = 250;
    EXPECT_EQ(plain(readBehind("out/a.parm {", text)), "");
    EXPECT_EQ(loader.count(), 251);
    EXPECT_EQ(loader.job(250).preID, 251);
}

TEST_F(OutNode, EndsTheScanWhenTheArrayHasNoRoom) {
    loader.array().count = -1;  // the host's number may be any; no record has this place
    EXPECT_EQ(loader.scan(driver("vm_picture=/i") + driver("vm_picture=/i")), resultNoMoreJobs);
    EXPECT_EQ(loader.count(), 0) << "the second driver was read";
    EXPECT_TRUE(nodeActiveTakes.isEmpty());
}

}  // namespace

}  // namespace vxP
