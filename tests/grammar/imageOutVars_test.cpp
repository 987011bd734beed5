#include "grammar/imageOutVars.h"

#include <gtest/gtest.h>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::plain;
using vxTest::wide;

struct _nameCase {
    const char *what, *value;
    const char* out;  ///< null: the name is refused
    bool noFrame = false, take = false;
    const char* old = "";
    bool prepend = false;
};

constexpr _nameCase nameCases[] = {
    {"width", "\"$HIP/img/b.$F4.exr\"", "$HIP/img/b.%4d.exr"},
    {"no_width", "$F.exr", "%d.exr"},
    {"small_letter", "a.$f4.exr", "a.%4d.exr"},
    {"braces", "a.${F4}.exr", "a.%4d.exr"},
    {"every_fraction", "$FF/a.$FF.exr", "%1d/a.$F1.exr"},
    {"fraction_in_braces", "a.${FF}.exr", "a.%1d.exr"},
    {"only_one_kind_of_fraction", "${FF}/$FF", "$FF/%1d"},
    {"only_the_first", "$F2/a.$F4.exr", "%2d/a.$F4.exr"},
    {"plain_goes_before_braces", "${F3}/a.$F4.exr", "$F3/a.%4d.exr"},
    {"none", "$HIP/a.exr", "$HIP/a.exr", true},
    {"other_braces_go", "${HIP}/{a}.exr", "$HIP/a.exr", true},
    {"take", "$ACTIVETAKE/$activeTake.$F", "<Channel>/<Channel>.%d", false, true},
    {"take_in_braces", "${activeTake}.exr", "<Channel>.exr", true, true},
    {"take_expression_escaped", "\"a`chsop(\\\"take\\\")`.exr\"", "a<Channel>.exr", true},
    {"take_expression_in_capitals", "\"`CHSOP(\"TAKE\")`/`CHSOP(\\\"TAKE\\\")`\"", "<Channel>/<Channel>", true},
    {"channel", "[ vm_picture\ta[$F].exr ]", "a[%d.exr"},
    {"channel_behind_a_name", "[ vm_picture\ta.$F.exr ]", nullptr, false, false, "old"},
    {"channel_without_value", "[ vm_picture ]", nullptr, true},
    {"reference", "a`chs(\"../x\")`.$F.exr", nullptr},
    {"placeholder_in_capitals", "CHS(Testfile.exr", "CHS(Testfile.exr", true},
    {"refused_name_tells_of_the_take", "$ACTIVETAKE/testfile.exr", nullptr, true, true},
    {"empty", "", nullptr, true, false, "old", true},
    {"plain_replaces", "a.$F", "a.%d", false, false, "old"},
    {"prefix_goes_in_front", "\"a.$F\"", "a.%d.exr", false, false, ".exr", true},
};

class ImageOutVars : public testing::TestWithParam<_nameCase> {};

TEST_P(ImageOutVars, SceneNameBecomesJobName) {
    const _nameCase& c = GetParam();
    const QString line = QString::fromUtf8(vxTest::param("vm_picture", c.value)).trimmed();
    QString out = wide(c.old);
    bool take = false;
    bool noFrame = !c.noFrame;
    EXPECT_EQ(replaceImageOutVars(line, c.prepend, out, take, noFrame), c.out != nullptr);
    EXPECT_EQ(plain(out), c.out != nullptr ? c.out : c.old);
    EXPECT_EQ(noFrame, c.noFrame);
    EXPECT_EQ(take, c.take);
    take = true;
    replaceImageOutVars(line, c.prepend, out, take, noFrame);
    EXPECT_TRUE(take) << "was set before";
}

INSTANTIATE_TEST_SUITE_P(Table, ImageOutVars, testing::ValuesIn(nameCases), vxTest::rowName);

}  // namespace

}  // namespace vxP
