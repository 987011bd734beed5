#include "drivers/outNodeNames.h"

#include <gtest/gtest.h>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::driver;
using vxTest::plainOf;

/// The scene's jobs, each as application, ":", renderer, and "*" when one file holds all frames.
std::string jobsOf(const QByteArray& scene) {
    const auto loader = vxTest::scanned(scene);
    std::string text;
    for (int i = 0; i < loader->count(); ++i)
        text += (i > 0 ? " " : "") + plainOf(loader->job(i).app) + ":" + plainOf(loader->job(i).appRenderer) +
                (loader->job(i).imageSingleOutputFile ? "*" : "");
    return text;
}

struct _driverCase {
    const char *what, *lines, *jobs, *version = "19.5.640", *path = "out/a";
};

constexpr _driverCase driverCases[] = {
    // the first kind of the list names the job, whatever the order of the lines
    {"arnold_before_opengl", "picture=/i|ar_picture=/i", "Houdini:arnold"},
    {"geometry_before_redshift", "RS_archive_file=/x|file=/i", "Houdini:geometry"},
    {"prman_before_alembic", "filename=/i.$F|ri_display=/i", "Houdini:prman"},
    {"alembic_before_vray", "SettingsOutput_img_file_path=/i|filename=/i.$F", "Houdini:alembic"},
    {"vray", "SettingsOutput_img_file_path=/i", "Houdini:vray"},
    {"usd_of_known_renderer", "ar_picture=/i|outputimage=/i|renderer=\"BRAY_HdKarma\"", "Houdini:usd_karma"},
    {"karma_in_capitals", "picture=/i", "Houdini:opengl", "", "stage/Karma1"},
    // export pairs
    {"one_file_is_not_for_arnold", "ar_picture=/i|render_export_mode=1|render_export_filepath=/x",
     "Houdini:createASS Arnold:createASS"},
    {"first_export_file_wins", "vm_picture=/i|soho_outputmode=on|soho_diskfile=/x|ar_ass_file=/x",
     "Houdini:createIFD Mantra_StdA:createIFD"},
    {"usd_export_for_arnold", "outputimage=/i|lopoutput=/x|renderer=HdArnold",
     "Houdini:createUSD_arnold* Arnold:arnold"},
    {"usd_export_for_redshift", "outputimage=/i|lopoutput=/x.RS|renderer=HdRedshift",
     "Houdini:createUSD_redshift* USD_StdA_single:redshift"},
    {"redshift_archive", "outputimage=/i|lopoutput=/x.rs|renderer=HdRedshift",
     "Houdini:createRS* USD_StdA_single:redshift"},
    {"redshift_archive_of_arnold", "ar_picture=/i|lopoutput=/x.$F.rs|renderer=redshift",
     "Houdini:createASS USD_StdA:redshift"},
    {"redshift_export_before_prman",
     "ri_display=/i|render_export_mode=1|render_export_filepath=/x|"
     "RS_outputFileNamePrefix=/i",
     "Houdini:createRS Redshift:createRS"},
    // a switch counts unless the driver is of another kind
    {"mantras_switch_of_arnold", "ar_picture=/i|soho_diskfile=/x|soho_outputmode=on", "Houdini:arnold"},
    {"arnolds_switch_of_mantra", "vm_picture=/i|soho_diskfile=/x|ar_ass_export_enable=on",
     "Houdini:createIFD Mantra_StdA:createIFD"},
    {"redshifts_switch_of_arnold", "ar_picture=/i|soho_diskfile=/x|RS_archive_enable=on", "Houdini:arnold"},
    {"prmans_switch_of_vray", "SettingsOutput_img_file_path=/i|soho_diskfile=/x|diskfile=on", "Houdini:vray"},
    // a kind counts from its line on; the last switch has the last word
    {"switch_before_kind", "soho_outputmode=on|ar_picture=/i|soho_diskfile=/x", "Houdini:createASS Arnold:createASS"},
    {"switch_off_again", "vm_picture=/i|soho_diskfile=/x|soho_outputmode=on|soho_outputmode2=\"off\"", "Houdini:"},
    // only Houdini 18.0 has a switch for one file
    {"file_per_frame", "vm_picture=/i|lopoutput=/x|fileperframe=\"on\"", "Houdini:createUSD USD_StdA:", "18.0.532"},
    {"one_file", "vm_picture=/i|render_export_mode=1|fileperframe=off|render_export_filepath=/x.$F",
     "Houdini:createVrScene* VRay_StdA:createVrScene", "18.0.532"},
    {"file_per_frame_in_19", "vm_picture=/i|lopoutput=/x|fileperframe=on",
     "Houdini:createUSD* USD_StdA_single:", "19.0"},
};

class DriverKind : public testing::TestWithParam<_driverCase> {};

TEST_P(DriverKind, NamesTheJobs) {
    const QByteArray version = "set -g _HIP_SAVEVERSION = '" + QByteArray(GetParam().version) + "'\n";
    EXPECT_EQ(jobsOf(version + driver(GetParam().lines, GetParam().path)), GetParam().jobs);
}

INSTANTIATE_TEST_SUITE_P(Table, DriverKind, testing::ValuesIn(driverCases), vxTest::rowName);

TEST(RedshiftArchive, CannotRenderLocally) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    loader.array().message = QStringView{QString(960, u'x')};
    for (const char* archive : {"/x.usd", "/x.rs", "/x.rs"})
        loader.scan(driver(QByteArray("outputimage=/i|renderer=redshift|lopoutput=") + archive));
    const std::string option = " \"AllowLocalRenderOut=0~0\"";
    EXPECT_EQ(plainOf(loader.array().message), (std::string(960, 'x') + option + option).substr(0, 1000));
}

}  // namespace

}  // namespace vxP
