#include "jobs/splitImageFile.h"

#include <gtest/gtest.h>

#include "tests/testText.h"

using vxTest::plainOf;
using vxTest::wide;

namespace {

struct _split {
    std::string file, dir{}, ext{};
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
    _split in, out;
    const char *scene = "", *database = "";
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
    {"hashes_counted", {"/s/b.######.exr"}, {"b.", "/s/", ".exr", 6}},
    {"hashes_in_brackets", {"/s/b[###].exr"}, {"b", "/s/", ".exr", 3}},
    {"printf", {"/s/b.%06d.exr"}, {"b.", "/s/", ".exr", 6}},
    {"printf_off", {"/s/b.%04d.exr"}, {"b.%04d", "/s/", ".exr"}, "", "", false},
    {"printf_low_byte", {"/s/b.%0260d.exr"}, {"b.", "/s/", ".exr", 4}},
    {"printf_last_percent", {"/s/%b.%03d.d#"}, {"%b.", "/s/", ".d", 3}},
    {"plain_digits", {"/s/b.0001.exr"}, {"b.", "/s/", ".exr"}},
    {"no_extension", {"/s/b"}, {"b", "/s/", ""}},
    {"known_extension", {"/s/b.####.EXR", "", ".exr"}, {"b.####", "/s/", ".exr"}},
    // one file for all frames
    {"movie", {"/s/m.mov"}, {"m.mov", "/s/", "", 4, true}},
    {"vrscene", {"/s/v.vrscene"}, {"v.vrscene", "/s/", "", 4, true}},
    {"single_already", {"/s/b.####.exr", "", "", 4, true}, {"b.####.exr", "/s/", "", 4, true}},
    // separators
    {"backslashes", {"D:\\proj\\img\\a.####.tif"}, {"a.", "D:\\proj\\img\\", ".tif"}},
    {"first_kind_wins_backslash", {"D:\\p/a.#.tif"}, {"a.", "D:\\p\\", ".tif", 1}},
    {"runs", {"/s//r///a.exr"}, {"a", "/s/r/", ".exr"}},
    {"share_doubled", {"\\\\\\\\server\\\\r\\\\a.exr"}, {"a", "\\\\server\\r\\", ".exr"}},
    {"points_resolved", {"/s/x/.././r/a.exr"}, {"a", "/s/r/", ".exr"}},
    {"drive_without_root", {"C:folder\\a.exr"}, {"a", "C:\\folder\\", ".exr"}},
    {"known_folder_takes_the_separator", {"\\s\\a.exr", "x/y"}, {"\\s\\a", "x\\y\\", ".exr"}},
    // variables in the file part
    {"camera_folder", {"/s/r/<Camera>/b.##.exr"}, {"<Camera>/b.", "/s/r/", ".exr", 2}},
    {"folder_variable_is_none", {"<SceneFolder>/r/b.exr"}, {"b", "<SceneFolder>/r/", ".exr"}},
    // scene and project folder
    {"scene_folder", {"/projects/show/shot/work/r/a.exr"}, {"a", "<SceneFolder>r/", ".exr"}, scene},
    {"scene_parent", {"/projects/show/shot/r/a.exr"}, {"a", "<SceneFolder>../r/", ".exr"}, scene},
    {"third_parent", {"/123456789/r/a.exr"}, {"a", "<SceneFolder>../../../r/", ".exr"}, "/123456789/1/2/3/a.hip"},
    {"no_fourth_parent", {"/123456789/r/a.exr"}, {"a", "/123456789/r/", ".exr"}, "/123456789/1/2/3/4/a.hip"},
    {"scene_parent_too_short", {"/projects/r/a.exr"}, {"a", "/projects/r/", ".exr"}, scene},
    {"scene_ten_characters", {"/12345678/r/a.exr"}, {"a", "/12345678/r/", ".exr"}, "/12345678/a.hip"},
    {"scene_eleven_characters", {"/123456789/r/a.exr"}, {"a", "<SceneFolder>r/", ".exr"}, "/123456789/a.hip"},
    {"scene_before_database", {"/p12345678/a.exr"}, {"a", "<SceneFolder>/", ".exr"}, "/p12345678/a.hip", "/p12345678"},
    {"database_before_parents", {"/p12345678/a.exr"}, {"a", "<Database>/", ".exr"}, "/p12345678/w/a.hip", "/p12345678"},
    {"database", {"/db/r/a.exr"}, {"a", "<Database>/r/", ".exr"}, "", "/db"},
    {"database_part_of_a_name", {"/db2/r/a.exr"}, {"a", "/db2/r/", ".exr"}, "", "/db"},
};

class SplitImageFile : public testing::TestWithParam<_case> {};

TEST_P(SplitImageFile, GivesFolderFileAndExtension) {
    EXPECT_EQ((splitAt<1000, 1000>(GetParam())), GetParam().out);
    EXPECT_EQ((splitAt<500, 500>(GetParam())), GetParam().out);
    EXPECT_EQ((splitAt<500, 250>(GetParam())), GetParam().out);
}

INSTANTIATE_TEST_SUITE_P(Table, SplitImageFile, testing::ValuesIn(cases), vxTest::rowName);

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

TEST(SplitImageFile, ChannelsDoNotChangeTheJob) {
    const auto job = std::make_unique<vxJ::_JobBasics_largePath>();
    const auto compact = std::make_unique<vxJ::_JobBasics>();
    job->imageFileName = u"/r/m.mov";
    job->sceneName = u"/projects12/a.hip";
    job->channels[2].fileName = u"/projects12/r/z.######.exr";
    compact->sceneDatabaseDir = u"/projects12";
    for (const char16_t* file : {u"/projects12/r/z.exr", u"/r/n.mov"})
        compact->channelAdd(vxJ::_vxString<500>(file), vxJ::_vxString<25>());
    job->splitImageFileInto_DirFileExt(true);
    compact->splitImageFileInto_DirFileExt(true);
    EXPECT_EQ(plainOf(job->imageDir) + plainOf(job->imageFileName), "/r/m.mov");
    EXPECT_EQ(std::tuple(job->imagePadding, job->imageSingleOutputFile, compact->imageSingleOutputFile),
              std::tuple(4, true, false));
    EXPECT_EQ(plainOf(job->channels[2].fileName) + plainOf(job->channels[2].extension), "<SceneFolder>r/z..exr");
    EXPECT_EQ(plainOf(compact->channelFileName(0)) + plainOf(compact->channelExtension(0)), "<Database>/r/z.exr");
    EXPECT_EQ(plainOf(compact->channelFileName(1)) + plainOf(compact->channelExtension(1)), "/r/n.mov");
}

}  // namespace
