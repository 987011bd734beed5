#include "catalogues/wedges.h"

#include <gtest/gtest.h>

#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace vxP {

namespace {

using vxTest::params;
using vxTest::plain;
using vxTest::wide;

void readWedge(const char* header, const QByteArray& text) {
    vxTest::freshScanState();
    QTextStream stream(text);
    QString line = wide(header);
    EXPECT_EQ(loadWedgeNode(nullptr, stream, line), resultSuccess);
}

constexpr int dropped = 0;

struct _wedgeCase {
    const char* what;
    QByteArray text;  ///< parameters behind those of `begin`
    int total, index = 0;
    const char* name = "p_c_0.000000";
};

const QByteArray begin = "prefix=\"p\"|driver=/out/a|wedgemethod=\"Channel\"|name1=\"c\"|range1=0\t1|steps1=5|";

const _wedgeCase wedgeCases[] = {
    {"even_steps", "", 5, 1, "p_c_0.250000"},
    {"first_channel_fastest", "STEPS1=3|Name2=d|range2=-2\t2|steps2=2", 6, 4, "p_c_0.500000_d_2.000000"},
    {"single_step", "range1=2\t3|steps1=1", 1, 0, "p_c_nan"},
    {"decimal_commas", "range1=0,5\t1,25", 5, 4, "p_c_1.250000"},
    {"negative_steps", "steps1=-2|name2=d|range2=0\t1|steps2=-2", 4, 3, "p_c_-0.333333_d_0.333333"},
    {"huge_numbers", "range1=0\t4e22", 5, 1, "p_c_10000000000000000000000.000000"},
    {"numbers_of_no_channel", "name0=x|range-1=2\t3|stepsx=0|name10001=x|steps10001=0", 5},
    {"wrapping_product", "steps1=65536|steps2=65537", 65536, 0, "p_c_0.000000__0.000000"},
    {"other_method", "wedgemethod=take", dropped},
    {"no_driver", "driver=\"\"", dropped},
    {"longer_name", "rangemode1=0", dropped},
};

class WedgeSection : public testing::TestWithParam<_wedgeCase> {};

TEST_P(WedgeSection, NamesItsVariants) {
    readWedge("0707out/wedge1.parm {", params(begin + GetParam().text));
    EXPECT_TRUE(wedges.isEmpty()) << "without its closing brace";
    readWedge("0707out/wedge1.parm {", params(begin + GetParam().text) + "}\n");
    ASSERT_EQ(wedges.size(), GetParam().total == dropped ? 0 : 1);
    if (wedges.isEmpty()) return;
    EXPECT_EQ(plain(wedges[0].getWedgeFileName(GetParam().index)), GetParam().name);
    wedges[0].params.append(_wedgeParams());
    EXPECT_EQ(wedges[0].totalWedges(), GetParam().total) << "stays as it was read";
}

INSTANTIATE_TEST_SUITE_P(Table, WedgeSection, testing::ValuesIn(wedgeCases), vxTest::rowName);

TEST(Wedges, ReadWhatFollowsTheWordOfABareLine) {
    const std::tuple<const char*, int, const char*> cases[] = {{"name1\n", 5, "p_1_0.000000"},
                                                               {"Name1\tx\n", 5, "p_1\tx_0.000000"},
                                                               {"steps1\nrange1\t3\n", 1, "p_c_nan"},
                                                               {"range1\t3\n", 5, "p_c_1.000000"}};
    for (const auto& [lines, total, name] : cases) {
        readWedge("0707out/wedge1.parm {", params(begin) + lines + "}\n");
        ASSERT_EQ(wedges.size(), 1) << lines;
        EXPECT_EQ(wedges[0].totalWedges(), total) << lines;
        EXPECT_EQ(plain(wedges[0].getWedgeFileName(0)), name) << lines;
    }
}

TEST(Wedges, FindTheirDriverFromTheirOwnFolder) {
    for (const auto& [header, path] :
         {std::pair{"obj/x/out/s/wedge1.parm {", "/out/s/../a"}, {"0707obj/s/wedge1.parm {", "/obj/s/../a"}}) {
        readWedge(header, params(begin + "driver=../../a") + "}\n");
        EXPECT_EQ(plain(wedges.last().driver), path);
    }
}

}  // namespace

}  // namespace vxP
