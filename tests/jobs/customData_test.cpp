#include <gtest/gtest.h>

#include <cstring>

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

/// Bytes overwritten from the number of entries on, where the block starts at byte 12, and what is still readable of
/// "first" = "one" and "second" = "two". What else any bytes may do: fuzz/customData.cpp.
TEST_F(CustomData, ReadsDamageAsEmptyAndIsRepairedByWriting) {
    const std::tuple<int, int, std::size_t, const char*, std::size_t> damages[] = {
        {0, 0x7F, 4, "first=one\nsecond=two\n", 6},            // count: huge
        {0, 0xFF, 4, "", 6},                                   // count: negative
        {8, 100, 1, "first=one\nsecond=two\n", 0},             // end before start
        {12 + 11, 'x', 1, "first=one\n", 6},                   // unknown mode
        {12 + 1, 0xFF, 1, "first=\nsecond=two\n", 6},          // value starts outside the block
        {12 + 3, 0x10, 1, "first=\nsecond=two\n", 6},          // value is longer than the block
        {12 + 16, 'n', 4000 - 16, "first=\x6e\x6e\x6e\n", 6},  // name without an end
        {0, 0xFF, 12 + 4000, "", 0},                           // nothing but ones
    };
    for (const auto& [at, value, length, readable, valueBytes] : damages) {
        SCOPED_TRACE(testing::Message() << "byte " << at);
        settings->customDataSet_All({wide("first"), wide("second")}, {wide("one"), wide("two")});
        std::memset(reinterpret_cast<quint8*>(&settings->customDataCount) + at, value, length);
        EXPECT_EQ(all(), readable);
        EXPECT_EQ(settings->customData_allValuesAsBlock_Uppercase().view().size(), valueBytes);
        settings->customDataSet_StrByID(1999999999, wide("x"));
        set("third", "three");
        EXPECT_EQ(all(), std::string(readable) + "third=three\n");
    }
}

}  // namespace
