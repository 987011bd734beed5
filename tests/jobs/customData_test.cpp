#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>

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
    std::string get(const char* name) const { return plain(settings->customData_Str(wide(name))); }
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
    EXPECT_EQ(all(), "UserInfo=three\ncomment=two\n");
    EXPECT_EQ(plain(settings->customData_UserInfo()), "three");
    EXPECT_TRUE(settings->customData_ContainCommentInfo());
    EXPECT_FALSE(settings->customData_Contains(wide("Comm")));
    settings->customDataAppend_Str(wide("COMMENT"), wide("+"));
    EXPECT_EQ(get("Comment"), "two+");
}

TEST_F(CustomData, EmptyValueDeletesAndPassesOverTheNext) {
    const QStringList names{wide("a"), wide("A"), wide("b"), wide("a")};
    settings->customDataSet_All(names, {wide("1"), wide("2"), wide("3"), wide("4"), wide("ignored")});
    set("a", "");
    EXPECT_EQ(all(), "A=2\nb=3\n");
    set("missing", "");
    EXPECT_EQ(all(), "A=2\nb=3\n");
}

TEST_F(CustomData, ChangesByNumber) {
    settings->customDataSet_All({{wide("a"), wide("1")}, {wide("b"), wide("2")}, {wide("a"), wide("3")}});
    settings->customDataSet_StrByID(2, wide("x"));
    settings->customDataSet_StrByID(0, QString());
    for (const int outside : {-1, 2}) {
        settings->customDataSet_StrByID(outside, wide("y"));
        EXPECT_EQ(plain(settings->customData_NameByID(outside)), "");
        EXPECT_EQ(plain(settings->customData_StrByID(outside)), "");
    }
    EXPECT_EQ(all(), "b=2\na=x\n");
    const auto before = std::make_unique<_JobSettingsScene>(*settings);
    settings->customData_ClearAll();
    EXPECT_EQ(all(), "");
    EXPECT_TRUE(settings->customData_isEqual(before.get()));  // the block stays
}

TEST_F(CustomData, DropsWhatDoesNotFit) {
    struct _case {
        const char* what;
        QStringList values;
        int kept;
    };
    const QString half(1989, QLatin1Char('v'));      // 1995 with the name and 5
    const QString wideText(1000, QChar(u'\u0100'));  // 2000 bytes
    QStringList manyEmpty;
    for (int i = 0; i < 660; ++i) manyEmpty.append(QString());
    const _case cases[] = {
        {"exactly the limit", {half, half}, 2},
        {"one above it", {half, half + QLatin1Char('v')}, 1},
        {"later ones go too", {half, half, QString(), wide("x")}, 2},
        {"the first one", {QString(5000, QLatin1Char('v'))}, 0},
        {"two bytes a character", {wideText, wideText, wide("x")}, 1},
        {"more directory than counted", manyEmpty, 571},  // 7 bytes each in 4000, counted as 6
    };
    for (const _case& list : cases) {
        QStringList names;
        for (int i = 0; i < list.values.size(); ++i) names.append(wide("n"));
        settings->customDataSet_All(names, list.values);
        EXPECT_EQ(settings->customData_maxIDs(), list.kept) << list.what;
        EXPECT_LE(settings->customDataValuesEnd, 4000) << list.what;
        for (int i = 0; i < list.kept; ++i)
            EXPECT_EQ(settings->customData_StrByID(i).size(), list.values.at(i).size()) << list.what << i;
    }
}

TEST_F(CustomData, NameEndsAtAZeroByte) {
    settings->customDataSet_All({wide("a\u0100b"), wide("c")}, {wide("1"), wide("2")});
    EXPECT_EQ(all(), "a=1\nc=2\n");
}

using _damage = std::function<void(_JobSettingsScene&)>;
struct _damageCase {
    const char* what;
    _damage damage;
    const char* all;  ///< what is still readable of "first" = "one" and "second" = "two"
    std::size_t valueBytes;
};

const _damageCase damageCases[] = {
    {"huge_count", [](auto& s) { s.customDataCount = std::numeric_limits<qint32>::max(); }, "first=one\nsecond=two\n",
     6},
    {"negative_count", [](auto& s) { s.customDataCount = -5; }, "", 6},
    {"unknown_mode", [](auto& s) { s.customDataBlock[11] = 'x'; }, "first=one\n", 6},
    {"value_start_outside", [](auto& s) { s.customDataBlock[1] = 0xFF; }, "first=\nsecond=two\n", 6},
    {"value_longer_than_block", [](auto& s) { s.customDataBlock[3] = 0x10; }, "first=\nsecond=two\n", 6},
    {"value_outside_by_its_mode",
     [](auto& s) {
         s.customDataBlock[0] = 'u';
         s.customDataBlock[3] = 0x08;
     },
     "first=\nsecond=two\n", 6},
    {"name_without_end", [](auto& s) { std::memset(s.customDataBlock + 16, 'n', 4000 - 16); }, "first=\x6e\x6e\x6e\n",
     6},
    {"no_zero_byte_at_all", [](auto& s) { std::memset(s.customDataBlock, 'c', 4000); }, "", 6},
    {"ends_outside",
     [](auto& s) {
         s.customDataValuesEnd = 4001;
         s.customDataNamesEnd = 3999;
     },
     "first=one\nsecond=two\n", 0},
    {"end_before_start", [](auto& s) { s.customDataNamesEnd = 100; }, "first=one\nsecond=two\n", 0},
    {"negative_start", [](auto& s) { s.customDataNamesEnd = std::numeric_limits<qint32>::min(); },
     "first=one\nsecond=two\n", 0},
    {"nothing_but_ones", [](auto& s) { std::memset(&s.customDataCount, 0xFF, 12 + 4000); }, "", 0},
};

class CustomDataDamage : public CustomData, public testing::WithParamInterface<_damageCase> {};

TEST_P(CustomDataDamage, ReadsAsEmptyAndIsRepairedByWriting) {
    set("first", "one");
    set("second", "two");
    GetParam().damage(*settings);
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

INSTANTIATE_TEST_SUITE_P(Table, CustomDataDamage, testing::ValuesIn(damageCases),
                         [](const auto& i) { return i.param.what; });

}  // namespace
