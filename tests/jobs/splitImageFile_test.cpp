#include "jobs/splitImageFile.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/testText.h"

using vxTest::plainOf;
using vxTest::wide;

namespace {

struct _split {
    std::string file;
    std::string dir{};
    std::string ext{};
    int padding = 4;
    bool single = false;

    bool operator==(const _split&) const = default;
};

void PrintTo(const _split& split, std::ostream* out) {
    *out << "dir " << split.dir << " file " << split.file << " ext " << split.ext << " padding " << split.padding
         << " single " << split.single;
}

struct _case {
    const char* what;
    _split in;
    _split out;
    const char* scene = "";
    const char* database = "";
    bool printfPadding = true;
};

/// The texts of all capacities that a case fits into.
template <quint16 A, quint16 B>
_split splitAt(const _case& c) {
    vxJ::_vxString<B> file(wide(c.in.file));
    vxJ::_vxString<A> dir(wide(c.in.dir));
    vxJ::_vxString<25> ext(wide(c.in.ext));
    bool single = c.in.single;
    auto padding = static_cast<unsigned char>(c.in.padding);
    vxJ::template_splitImageFileInto_DirFileExt<A, B>(c.printfPadding, file, dir, ext, single, padding,
                                                      vxJ::_vxString<A>(wide(c.database)),
                                                      vxJ::_vxString<A>(wide(c.scene)));
    return {plainOf(file), plainOf(dir), plainOf(ext), padding, single};
}

constexpr const char* scene = "/projects/show/shot/work/a.hip";

const _case cases[] = {
    // frame numbers and extensions
    {"hashes", {"/s/r/beauty.####.exr"}, {"beauty.", "/s/r/", ".exr"}},
    {"hashes_counted", {"/s/b.######.exr"}, {"b.", "/s/", ".exr", 6}},
    {"hashes_in_brackets", {"/s/b[###].exr"}, {"b", "/s/", ".exr", 3}},
    {"hashes_only_first_run", {"/s/b.##.x#.exr"}, {"b.", "/s/", ".x#.exr", 2}},
    {"hashes_at_the_end", {"/s/b.###"}, {"b.", "/s/", "", 3}},
    {"printf", {"/s/b.%06d.exr"}, {"b.", "/s/", ".exr", 6}},
    {"printf_off", {"/s/b.%04d.exr"}, {"b.%04d", "/s/", ".exr"}, "", "", false},
    {"printf_off_leaves_hashes", {"/s/b.##.exr"}, {"b.", "/s/", ".exr", 2}, "", "", false},
    {"printf_no_digits", {"/s/b.%d.exr"}, {"b.", "/s/", ".exr", 1}},
    {"printf_low_byte", {"/s/b.%0260d.exr"}, {"b.", "/s/", ".exr", 4}},
    {"printf_low_byte_zero", {"/s/b.%256d.exr"}, {"b.", "/s/", ".exr", 1}},
    {"printf_no_number", {"/s/b.%xd.exr"}, {"b.", "/s/", ".exr", 1}},
    {"printf_last_percent", {"/s/%b.%03d.d#"}, {"%b.", "/s/", ".d", 3}},
    {"printf_d_before_percent", {"/s/d%.0012.exr"}, {"d%.", "/s/", ".exr"}},
    {"plain_digits", {"/s/b.0001.exr"}, {"b.", "/s/", ".exr"}},
    {"plain_digits_one_stays", {"/s/0001.exr"}, {"0", "/s/", ".exr"}},
    {"no_extension", {"/s/b"}, {"b", "/s/", ""}},
    {"dot_file", {"/s/b.0001.file"}, {"b.0001.file", "/s/", ""}},
    {"known_extension", {"/s/b.####.EXR", "", ".exr"}, {"b.####", "/s/", ".exr"}},
    {"known_extension_elsewhere", {"/s/b.##", "", ".exr"}, {"b.##", "/s/", ".exr"}},
    {"long_extension_is_cut", {"/s/b.#.extensionOfThirtyCharacters"}, {"b.", "/s/", ".extensionOfThirtyCharact", 1}},
    // one file for all frames
    {"movie", {"/s/m.mov"}, {"m.mov", "/s/", "", 4, true}},
    {"movie_with_frames", {"/s/m.##.Mp4"}, {"m.##.Mp4", "/s/", "", 2, true}},
    {"movie_known_extension", {"/s/m", "", ".avi"}, {"m.avi", "/s/", "", 4, true}},
    {"vrscene", {"/s/v.vrscene"}, {"v.vrscene", "/s/", "", 4, true}},
    {"vrscene_with_frames", {"/s/v.####.vrscene"}, {"v.", "/s/", ".vrscene"}},
    {"vrscene_known_extension", {"/s/v.vrscene", "", ".vrscene"}, {"v", "/s/", ".vrscene"}},
    {"single_already", {"/s/b.####.exr", "", "", 4, true}, {"b.####.exr", "/s/", "", 4, true}},
    {"single_already_extension", {"/s/b", "", ".exr", 4, true}, {"b.exr", "/s/", "", 4, true}},
    // separators
    {"backslashes", {"D:\\proj\\img\\a.####.tif"}, {"a.", "D:\\proj\\img\\", ".tif"}},
    {"first_kind_wins_backslash", {"D:\\p/a.#.tif"}, {"a.", "D:\\p\\", ".tif", 1}},
    {"first_kind_wins_slash", {"/p\\a.#.tif"}, {"a.", "/p/", ".tif", 1}},
    {"runs", {"/s//r///a.exr"}, {"a", "/s/r/", ".exr"}},
    {"share", {"//server/r/a.exr"}, {"a", "//server/r/", ".exr"}},
    {"share_backslashes", {"\\\\server\\\\r\\a.exr"}, {"a", "\\\\server\\r\\", ".exr"}},
    {"share_doubled", {"\\\\\\\\server\\\\r\\\\a.exr"}, {"a", "\\\\server\\r\\", ".exr"}},
    {"four_take_the_first_pair", {"/x//y////r/a.exr"}, {"a", "/xy/r/", ".exr"}},
    {"points_resolved", {"/s/x/.././r/a.exr"}, {"a", "/s/r/", ".exr"}},
    {"drive_without_root", {"C:folder\\a.exr"}, {"a", "C:\\folder\\", ".exr"}},
    {"known_folder", {"/s/a.exr", "x//y"}, {"/s/a", "x/y/", ".exr"}},
    {"known_folder_takes_the_separator", {"\\s\\a.exr", "x/y"}, {"\\s\\a", "x\\y\\", ".exr"}},
    // variables in the file part
    {"camera_folder", {"/s/r/<Camera>/b.##.exr"}, {"<Camera>/b.", "/s/r/", ".exr", 2}},
    {"separator_in_a_variable", {"/s/a<ValueVar @$AOV/>b.exr"}, {"a<ValueVar @$AOV/>b", "/s/", ".exr"}},
    {"first_variable_counts", {"/s/<Channel>/<Layer>/b.exr"}, {"<Channel>/<Layer>/b", "/s/", ".exr"}},
    {"variable_in_front", {"<Camera>/b.exr"}, {"<Camera>/b", "", ".exr"}},
    {"folder_variable_is_none", {"<SceneFolder>/r/b.exr"}, {"b", "<SceneFolder>/r/", ".exr"}},
    // scene and project folder
    {"scene_folder", {"/projects/show/shot/work/r/a.exr"}, {"a", "<SceneFolder>r/", ".exr"}, scene},
    {"scene_parent", {"/projects/show/shot/r/a.exr"}, {"a", "<SceneFolder>../r/", ".exr"}, scene},
    {"scene_grandparent", {"/projects/show/r/a.exr"}, {"a", "<SceneFolder>../../r/", ".exr"}, scene},
    {"scene_parent_too_short", {"/projects/r/a.exr"}, {"a", "/projects/r/", ".exr"}, scene},
    {"scene_third_parent",
     {"/projects12/r/a.exr"},
     {"a", "<SceneFolder>../../../r/", ".exr"},
     "/projects12/1/2/3/a.hip"},
    {"scene_no_fourth_parent", {"/projects12/r/a.exr"}, {"a", "/projects12/r/", ".exr"}, "/projects12/1/2/3/4/a.hip"},
    {"scene_other_case", {"/Projects12/r/a.exr"}, {"a", "/Projects12/r/", ".exr"}, "/projects12/a.hip"},
    {"scene_ten_characters", {"/12345678/r/a.exr"}, {"a", "/12345678/r/", ".exr"}, "/12345678/a.hip"},
    {"scene_eleven_characters", {"/123456789/r/a.exr"}, {"a", "<SceneFolder>r/", ".exr"}, "/123456789/a.hip"},
    {"scene_backslashes", {"D:\\projects\\r\\a.exr"}, {"a", "<SceneFolder>r\\", ".exr"}, "D:/projects/a.hip"},
    {"scene_folder_twice",
     {"/projects12/x/projects12/a.exr"},
     {"a", "<SceneFolder>x<SceneFolder>/", ".exr"},
     "/projects12/a.hip"},
    {"database", {"/db/r/a.exr"}, {"a", "<Database>/r/", ".exr"}, "", "/db"},
    {"database_with_separator", {"/db/r/a.exr"}, {"a", "<Database>r/", ".exr"}, "", "/db/"},
    {"database_part_of_a_name", {"/db2/r/a.exr"}, {"a", "/db2/r/", ".exr"}, "", "/db"},
    {"database_backslashes", {"D:\\db\\r\\a.exr"}, {"a", "D:\\db\\r\\", ".exr"}, "", "D:\\db"},
    {"scene_before_database",
     {"/projects12/r/a.exr"},
     {"a", "<SceneFolder>r/", ".exr"},
     "/projects12/a.hip",
     "/projects12"},
    {"database_before_parents",
     {"/projects12/r/a.exr"},
     {"a", "<Database>/r/", ".exr"},
     "/projects12/w/a.hip",
     "/projects12"},
    {"nothing", {""}, {""}, scene, "/db"},
};

class SplitImageFile : public testing::TestWithParam<_case> {};

TEST_P(SplitImageFile, GivesFolderFileAndExtension) {
    EXPECT_EQ((splitAt<1000, 1000>(GetParam())), GetParam().out);
    EXPECT_EQ((splitAt<500, 500>(GetParam())), GetParam().out);
    EXPECT_EQ((splitAt<500, 250>(GetParam())), GetParam().out);
}

INSTANTIATE_TEST_SUITE_P(Table, SplitImageFile, testing::ValuesIn(cases), [](const auto& i) { return i.param.what; });

TEST(SplitImageFile, CutsAtItsCapacities) {
    const std::string folder = "/" + std::string(200, 'd') + "/";
    const _case fits{"", {folder + std::string(47, 'f')}, {}};
    EXPECT_EQ((splitAt<500, 250>(fits)), (_split{std::string(47, 'f'), folder}));
    // The marker is longer than the folder that it replaces: the end of a full folder goes, with its separator.
    const _case grows{"", {"x", "/projects9/" + std::string(489, 'd')}, {}, "/projects9/a.hip"};
    EXPECT_EQ((splitAt<500, 500>(grows)).dir, "<SceneFolder>" + std::string(487, 'd'));
    const _case movie{"", {"/" + std::string(245, 'f'), "/d/", ".mpeg"}, {}};
    EXPECT_EQ((splitAt<500, 250>(movie)).file, "/" + std::string(245, 'f') + ".mpe");
}

TEST(SplitImageFile, LargePathJobWithItsChannels) {
    const auto job = std::make_unique<vxJ::_JobBasics_largePath>();
    job->imageFileName = u"/projects12/r/m.mov";
    job->sceneName = u"/projects12/a.hip";
    job->channels[0].fileName = u"/projects12/r/z.######.exr";
    job->channels[2].fileName = u"/r/n.mov";
    job->channels[3].fileName = u"/r/o.exr";
    job->splitImageFileInto_DirFileExt(true);
    EXPECT_EQ(plainOf(job->imageDir) + "|" + plainOf(job->imageFileName), "<SceneFolder>r/|m.mov");
    EXPECT_TRUE(job->imageSingleOutputFile);
    EXPECT_EQ(job->imagePadding, 4);
    const std::string expected[] = {"<SceneFolder>r/z.|.exr", "|", "/r/n.mov|", "/r/o|.exr"};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(plainOf(job->channels[i].fileName) + "|" + plainOf(job->channels[i].extension), expected[i]);
}

TEST(SplitImageFile, CompactJobWithItsChannels) {
    const auto job = std::make_unique<vxJ::_JobBasics>();
    job->imageFileName = u"/db/r/b.##.exr";
    job->sceneDatabaseDir = u"/db";
    job->channelAdd(vxJ::_vxString<500>(u"/db/r/z.######.exr"), {});
    job->channelAdd(vxJ::_vxString<500>(u"/r/n.tif"), vxJ::_vxString<25>(u".tif"));
    job->splitImageFileInto_DirFileExt(true);
    EXPECT_EQ(plainOf(job->imageDir) + plainOf(job->imageFileName), "<Database>/r/b.");
    EXPECT_EQ(job->imagePadding, 2);
    EXPECT_EQ(plainOf(job->channelFileName(0)) + "|" + plainOf(job->channelExtension(0)), "<Database>/r/z.|.exr");
    EXPECT_EQ(plainOf(job->channelFileName(1)) + "|" + plainOf(job->channelExtension(1)), "/r/n|.tif");
}

}  // namespace
