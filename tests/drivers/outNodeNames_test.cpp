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
    vxTest::freshScanState();
    vxTest::_loader loader;
    EXPECT_EQ(loader.scan(scene), resultSuccess);
    std::string text;
    for (int i = 0; i < loader.count(); ++i)
        text += (i > 0 ? " " : "") + plainOf(loader.job(i).app) + ":" + plainOf(loader.job(i).appRenderer) +
                (loader.job(i).imageSingleOutputFile ? "*" : "");
    return text;
}

struct _driverCase {
    const char *what, *lines, *jobs, *version = "19.5.640", *path = "out/a";
};

constexpr _driverCase driverCases[] = {
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

using _kindRows = std::initializer_list<std::pair<const char*, std::string>>;

/// Names of a driver's jobs by its lines, from the last row to the first, each beside all those below it.
void expectFirstWins(QByteArray lines, _kindRows rows) {
    for (auto row = std::rbegin(rows); row != std::rend(rows); ++row) {
        lines += row->first;
        EXPECT_EQ(jobsOf(driver(lines)), "Houdini:" + row->second) << lines.data();
    }
}

TEST(DriverKinds, FirstOfSeveralNamesTheJobs) {
    expectFirstWins("vm_picture=/i", {{"|ar_picture=/i", "arnold"},
                                      {"|picture=/i", "opengl"},
                                      {"|file=/i", "geometry"},
                                      {"|RS_archive_file=/x", "redshift"},
                                      {"|ri_display=/i", "prman"},
                                      {"|filename=/i.$F", "alembic"},
                                      {"|SettingsOutput_img_file_path=/i", "vray"}});
    expectFirstWins("soho_outputmode=on|soho_diskfile=/x",
                    {{"|ar_picture=/i", "createASS Arnold:createASS"},
                     {"|RS_outputFileNamePrefix=/i", "createRS Redshift:createRS"},
                     {"|ri_display=/i", "createRIB RenderMan:createRIB"},
                     {"|SettingsOutput_img_file_path=/i", "createVrScene VRay_StdA:createVrScene"}});
}

TEST(ExportSwitch, CountsUnlessTheDriverIsOfAnotherKind) {
    const QByteArray kinds[] = {"vm_picture", "ar_picture", "RS_outputFileNamePrefix", "SettingsOutput_img_file_path",
                                "ri_display"};
    const std::pair<QByteArray, const char*> switches[] = {{"soho_outputmode", "10000"},
                                                           {"ar_ass_export_enable", "11000"},
                                                           {"RS_archive_enable", "10100"},
                                                           {"rib_outputmode", "10001"},
                                                           {"diskfile", "10001"}};
    for (const auto& [name, countsFor] : switches) {
        std::string counts;
        for (const QByteArray& kind : kinds)
            counts += jobsOf(driver(kind + "=/i|soho_diskfile=/x|" + name + "=on")).find(' ') == std::string::npos
                          ? '0'
                          : '1';
        EXPECT_EQ(counts, countsFor) << name.data();
    }
}

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
