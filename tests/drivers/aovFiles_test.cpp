#include "drivers/aovFiles.h"

#include <gtest/gtest.h>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::param;
using vxTest::plain;

struct _aovCase {
    const char *what, *image;
    QByteArray lines;
    std::size_t slot;
    const char* file;
    bool sceneFolder = false;
};

QByteArray redshift(const QByteArray& slot, const QByteArray& prefix, const QByteArray& suffix,
                    const QByteArray& format) {
    return param("RS_aovFileFormat_" + slot, format) + param("RS_aovSuffix_" + slot, suffix) +
           param("RS_aovCustomPrefix_" + slot, prefix);
}

const _aovCase aovCases[] = {
    {"whole_name", "", param("ar_aov_separate_file1", "\"/i/\"d.$F4.exr\""), 1, "/i/d.%4d.exr"},
    {"empty_name_is_ignored", "", param("ar_aov_separate_file1", "a") + param("ar_aov_separate_file1", "\"\""), 1, "a"},
    {"last_slot", "", param("ar_aov_separate_file19", "/i/d.$f.$F.exr"), 19, "/i/d.%d.$F.exr"},
    {"parts", "/img/b.exr", redshift("2", "\"/p/a\"", "\"dif\"", "\".exr\""), 2, "/p/a.dif.exr"},
    {"no_prefix", "/img/b.%4d.exr", redshift("2", "\"\"", "dif", ".png"), 2, "/img/b.%4d.dif.png"},
    {"no_suffix", "/img/b.exr", redshift("2", "/p/a.$F4", "", ".exr"), 2, "/p/a.%4d..exr"},
    {"format_alone_is_no_file", "/img/b.exr", redshift("2", "", "", ".exr"), 2, ""},
    {"token_in_the_prefix", "", redshift("2", "/$AOV/a_$AOV", "dif", ".exr"), 2, "/dif/a_dif.exr"},
    {"token_in_the_image", "/i/$AOV/b.exr", redshift("2", "", "dif", ".png"), 2, "/i/dif/b.png"},
    {"name_in_the_scene_folder", "", param("ar_aov_separate_file3", "$hip/a"), 3, "$hip/a", true},
    {"prefix_in_the_scene_folder", "", param("RS_aovCustomPrefix_3", "$HIP/a"), 3, "$HIP/a.", true},
};

using _slots = std::array<_aovSlot, aovSlotCount>;

/// @return whether the last of the lines was taken
bool readAll(_slots& slots, const QByteArray& lines) {
    bool taken = false;
    for (const QByteArray& line : lines.trimmed().split('\n')) taken = readAovParameter(slots, QString::fromUtf8(line));
    return taken;
}

class AovFile : public testing::TestWithParam<_aovCase> {};

TEST_P(AovFile, IsPutTogether) {
    vxTest::freshScanState();
    _slots slots;
    EXPECT_TRUE(readAll(slots, GetParam().lines));
    assembleAovFileNames(slots, vxTest::wide(GetParam().image));
    EXPECT_EQ(plain(slots.at(GetParam().slot).fileName), GetParam().file);
    EXPECT_EQ(HIPFound_DisableLocalScene, GetParam().sceneFolder);
}

INSTANTIATE_TEST_SUITE_P(Table, AovFile, testing::ValuesIn(aovCases), vxTest::rowName);

TEST(AovFile, NeedsASlotFromOneToNineteen) {
    vxTest::freshScanState();
    _slots slots;
    for (const char* slot : {"0", "20", "-1", "", "s", "4294967297"})
        EXPECT_FALSE(readAll(slots, param(QByteArray("ar_aov_separate_file") + slot, "$HIP/a"))) << slot;
    assembleAovFileNames(slots, QStringLiteral("/i/a.exr"));
    for (const _aovSlot& each : slots) EXPECT_EQ(plain(each.fileName), "");
    EXPECT_FALSE(HIPFound_DisableLocalScene);
}

}  // namespace

}  // namespace vxP
