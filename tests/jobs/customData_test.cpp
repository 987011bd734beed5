#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <limits>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "tests/testText.h"

using vxJ::_JobSettingsScene;
using vxTest::plain;
using vxTest::wide;

namespace {

/// A zeroed settings block that is watched: nothing may be written in front of the counters or behind the block.
class CustomData : public testing::Test {
 protected:
    CustomData() : settings(new _JobSettingsScene) {
        std::memset(static_cast<void*>(settings.get()), 0, sizeof *settings);
        settings->reservedStep[3] = 0x5A;
        settings->unnamedTexts[0] = u"untouched";
    }
    ~CustomData() override {
        EXPECT_EQ(settings->reservedStep[3], 0x5A);
        EXPECT_EQ(vxTest::plainOf(settings->unnamedTexts[0]), "untouched");
    }

    void set(const char* name, const char* value) { settings->customDataSet_Str(wide(name), wide(value)); }
    std::string all() const { return plain(settings->customData_AllAsString()); }

    std::unique_ptr<_JobSettingsScene> settings;
};

TEST_F(CustomData, StoresInItsByteLayout) {
    settings->customDataSet_All({wide("Ab"), wide("C")}, {wide("xyz"), wide("\u0141\u00E4")});
    constexpr quint8 expected[] = {'c', 0,   15, 0,   3,   'A', 'b', 0,    'u', 0,    18, 0,
                                   2,   'C', 0,  'x', 'y', 'z', 1,   0x41, 0,   0xE4, 0,  0};
    EXPECT_EQ(std::memcmp(settings->customDataBlock, expected, sizeof expected), 0);
    EXPECT_EQ(settings->customData_maxIDs(), 2);
    EXPECT_EQ(settings->customDataNamesEnd, 15);
    EXPECT_EQ(settings->customDataValuesEnd, 22);
    EXPECT_EQ(plain(settings->customData_StrByID(1)), "A\u00E4");  // low bytes only
    EXPECT_EQ(settings->customData_allValuesAsBlock_Uppercase().view(), std::string_view("XYZ\1A\0\xC4", 7));
}

TEST_F(CustomData, FindsNamesInAnyCaseAndKeepsTheFirstSpelling) {
    set("UserInfo", "one");
    set("comment", "two");
    set("USERINFO", "three");
    settings->customDataAppend_Str(wide("COMMENT"), wide("+"));
    EXPECT_EQ(all(), "UserInfo=three\ncomment=two+\n");
    EXPECT_FALSE(settings->customData_Contains(wide("Comm")));
}

TEST_F(CustomData, EmptyValueDeletesAndPassesOverTheNext) {
    const QStringList names{wide("a"), wide("A"), wide("b"), wide("a\u0100b")};  // a name ends at a zero byte
    settings->customDataSet_All(names, {wide("1"), wide("2"), wide("3"), wide("4"), wide("ignored")});
    EXPECT_EQ(all(), "a=1\nA=2\nb=3\na=4\n");
    set("a", "");
    set("missing", "");
    for (const int outside : {-1, 2}) settings->customDataSet_StrByID(outside, wide("y"));
    EXPECT_EQ(all(), "A=2\nb=3\n");
    settings->customDataSet_StrByID(0, wide("x"));
    EXPECT_EQ(all(), "A=x\nb=3\n");
}

TEST_F(CustomData, DropsWhatDoesNotFit) {
    const QString half(1989, QLatin1Char('v'));      // 1995 with the name and 5
    const QString wideText(1000, QChar(u'\u0100'));  // 2000 bytes
    const struct {
        const char* what;
        QStringList values;
        int kept;
    } cases[] = {
        {"exactly the limit", {half, half}, 2},
        {"one above it", {half, half + QLatin1Char('v')}, 1},
        {"later ones go too", {half, half, QString(), wide("x")}, 2},
        {"the first one", {QString(5000, QLatin1Char('v'))}, 0},
        {"two bytes a character", {wideText, wideText, wide("x")}, 1},
        {"more directory than counted", QString(659, u'|').split(u'|'), 571},  // 7 bytes each in 4000, counted as 6
    };
    for (const auto& list : cases) {
        QStringList names;
        for (int i = 0; i < list.values.size(); ++i) names.append(wide("n"));
        settings->customDataSet_All(names, list.values);
        EXPECT_EQ(settings->customData_maxIDs(), list.kept) << list.what;
        EXPECT_LE(settings->customDataValuesEnd, 4000) << list.what;
        for (int i = 0; i < list.kept; ++i)
            EXPECT_EQ(settings->customData_StrByID(i).size(), list.values.at(i).size()) << list.what << i;
    }
}

/// Bytes overwritten from the number of entries on; the block starts at byte 12.
struct _write {
    int at;
    int value;
    std::size_t length = 1;
};
struct _damageCase {
    const char* what;
    std::vector<_write> writes;
    const char* all;  ///< what is still readable of "first" = "one" and "second" = "two"
    std::size_t valueBytes = 6;
};

const _damageCase damageCases[] = {
    {"huge_count", {{0, 0x7F, 4}}, "first=one\nsecond=two\n"},
    {"negative_count", {{0, 0xFF, 4}}, ""},
    {"unknown_mode", {{12 + 11, 'x'}}, "first=one\n"},
    {"value_start_outside", {{12 + 1, 0xFF}}, "first=\nsecond=two\n"},
    {"value_longer_than_block", {{12 + 3, 0x10}}, "first=\nsecond=two\n"},
    {"value_outside_by_its_mode", {{12 + 0, 'u'}, {12 + 3, 8}}, "first=\nsecond=two\n"},
    {"name_without_end", {{12 + 16, 'n', 4000 - 16}}, "first=\x6e\x6e\x6e\n"},
    {"no_zero_byte_at_all", {{12, 'c', 4000}}, ""},
    {"end_outside", {{4, 4001 % 256}, {5, 4001 / 256}, {8, 3999 % 256}, {9, 3999 / 256}}, "first=one\nsecond=two\n", 0},
    {"end_before_start", {{8, 100}}, "first=one\nsecond=two\n", 0},
    {"negative_start", {{11, 0x80}}, "first=one\nsecond=two\n", 0},
    {"nothing_but_ones", {{0, 0xFF, 12 + 4000}}, "", 0},
};

class CustomDataDamage : public CustomData, public testing::WithParamInterface<_damageCase> {};

TEST_P(CustomDataDamage, ReadsAsEmptyAndIsRepairedByWriting) {
    set("first", "one");
    set("second", "two");
    auto* const bytes = reinterpret_cast<quint8*>(&settings->customDataCount);
    for (const _write& write : GetParam().writes) std::memset(bytes + write.at, write.value, write.length);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(all(), GetParam().all);
    EXPECT_EQ(settings->customData_allValuesAsBlock_Uppercase().view().size(), GetParam().valueBytes);
    EXPECT_EQ(plain(settings->customData_NameByID(std::numeric_limits<int>::max() - 1)), "");
    settings->customDataSet_StrByID(1999999999, wide("x"));
    EXPECT_EQ(all(), GetParam().all);
    set("third", "three");
    EXPECT_EQ(all(), std::string(GetParam().all) + "third=three\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

INSTANTIATE_TEST_SUITE_P(Table, CustomDataDamage, testing::ValuesIn(damageCases), vxTest::rowName);

}  // namespace
