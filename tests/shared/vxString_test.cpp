#include "shared/vxString.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "shared/vxString8.h"
#include "tests/testText.h"

using vxTest::plainOf;
using vxTest::wide;

namespace {

using _wide10 = vxS::_vxString<10>;
using _narrow10 = vxS::_vxString8_allSize<10>;

/// Overwrites the length word, as a broken host would.
template <class Text>
void setLengthWord(Text& text, quint16 length) {
    std::memcpy(static_cast<void*>(&text), &length, sizeof length);
}

struct _changeCase {
    const char* what;
    const char* before;
    std::function<void(_wide10&)> wideChange;
    std::function<void(_narrow10&)> narrowChange;
    const char* after;
};

// NOLINTBEGIN(bugprone-macro-parentheses)
#define BOTH(expression) [](_wide10& t) { expression; }, [](_narrow10& t) { expression; }
#define TEXTS(wideExpression, narrowExpression) \
    [](_wide10& t) { wideExpression; }, [](_narrow10& t) { narrowExpression; }
// NOLINTEND(bugprone-macro-parentheses)

const _changeCase changeCases[] = {
    {"below_capacity", "", TEXTS(t = u"123456789", t = "123456789"), "123456789"},
    {"at_capacity", "", TEXTS(t = u"1234567890", t = "1234567890"), "1234567890"},
    {"above_capacity", "", TEXTS(t = u"12345678901", t = "12345678901"), "1234567890"},
    {"from_its_own_middle", "abcdefghij", TEXTS(t = t.view().mid(3), t = t.view().substr(3)), "defghij"},
    {"insert_pushes_the_end_out", "abcdefgh", TEXTS(t.insert(2, u"1234"), t.insert(2, "1234")), "ab1234cdef"},
    {"insert_itself", "abc", TEXTS(t.insert(1, t.view()), t.insert(1, t.view())), "aabcbc"},
    {"insert_behind_the_end", "abc", TEXTS(t.insert(4, u"x"), t.insert(4, "x")), "abc"},
    {"insert_before_the_start", "abc", TEXTS(t.insert(-1, u"x"), t.insert(-1, "x")), "abc"},
    {"remove_more_than_there_is", "abcdef", BOTH(t.remove(4, 100)), "abcd"},
    {"remove_outside", "abc", BOTH(t.remove(3, 1); t.remove(-1, 2); t.remove(1, -1)), "abc"},
    {"cut_short", "abcdef", BOTH(t.setLength(2)), "ab"},
    {"cut_to_more_or_less_than_nothing", "abc", BOTH(t.setLength(7); t.setLength(-1)), "abc"},
    {"replace_all", "a.b.c", TEXTS(t.replaceCaseSen(u".", u"--"), t.replaceCaseSen(".", "--")), "a--b--c"},
    {"replace_past_capacity", "a.b.c.d", TEXTS(t.replaceCaseSen(u".", u"-+-"), t.replaceCaseSen(".", "-+-")),
     "a-+-b-+-c-"},
    {"replace_what_is_not_rescanned", "aaaa", TEXTS(t.replaceCaseSen(u"aa", u"a"), t.replaceCaseSen("aa", "a")), "aa"},
    {"replace_other_case", "AbaB", TEXTS(t.replaceCaseInsen(u"aB", u"x"), t.replaceCaseInsen("aB", "x")), "xx"},
    {"replace_only_this_case", "Abab", TEXTS(t.replaceCaseSen(u"ab", u"x"), t.replaceCaseSen("ab", "x")), "Abx"},
    {"replace_nothing", "abc", TEXTS(t.replaceCaseSen(u"", u"x"), t.replaceCaseSen("", "x")), "abc"},
    {"broken_length_then_remove", "abc", BOTH(setLengthWord(t, 0xFFFF); t.remove(3, 100)), "abc"},
    {"broken_length_then_cut", "abc", BOTH(setLengthWord(t, 11); t.setLength(2)), "ab"},
};

class FixedText : public testing::TestWithParam<_changeCase> {};

TEST_P(FixedText, ChangesAndStaysWithinCapacity) {
    const _changeCase& change = GetParam();
    struct {
        _wide10 text;
        quint16 behind = 0x5A5A;
    } wideField;
    struct {
        _narrow10 text;
        quint16 behind = 0x5A5A;
    } narrowField;
    wideField.text = wide(change.before);
    narrowField.text = std::string_view(change.before);
    change.wideChange(wideField.text);
    change.narrowChange(narrowField.text);
    EXPECT_EQ(plainOf(wideField.text), change.after);
    EXPECT_EQ(plainOf(narrowField.text), change.after);
    EXPECT_EQ(*(wideField.text.view().utf16() + wideField.text.length()), 0);
    EXPECT_EQ(narrowField.text.view().data()[narrowField.text.length()], '\0');
    EXPECT_EQ(wideField.behind, 0x5A5A);
    EXPECT_EQ(narrowField.behind, 0x5A5A);
}

INSTANTIATE_TEST_SUITE_P(Table, FixedText, testing::ValuesIn(changeCases), [](const auto& i) { return i.param.what; });

TEST(FixedText, BrokenLengthReadsAsCapacity) {
    _wide10 text(u"abc");
    setLengthWord(text, 0xFFFF);
    EXPECT_EQ(text.length(), 10);
    _narrow10 narrow("abc");
    setLengthWord(narrow, 0xFFFF);
    EXPECT_EQ(narrow.view().size(), 10U);
}

TEST(FixedText, StoresLatinAndMarksTheRest) {
    const _narrow10 text(QStringView(u"\u00E4\u0100z"));
    EXPECT_EQ(text.view(), "\xE4?z");
    EXPECT_EQ(text.toQString(), QStringLiteral("\u00E4?z"));
}

TEST(FixedText, ComparesAcrossCapacities) {
    EXPECT_TRUE(_wide10(u"abc") == vxS::_vxString<5>(u"abc"));
    EXPECT_TRUE(_wide10(u"ab") < vxS::_vxString<5>(u"abc"));
    EXPECT_TRUE(_narrow10("b") > vxS::_vxString8_allSize<5>("abc"));
    EXPECT_FALSE(_narrow10("abc") == vxS::_vxString8_allSize<5>("abC"));
}

TEST(FixedText, FindsFromAPositionInEitherCase) {
    const _wide10 text(u"abcABCab");
    const _narrow10 narrow("abcABCab");
    EXPECT_EQ(text.indexOf(u"ab", 1), 6);
    EXPECT_EQ(narrow.indexOf("ab", 1), 6);
    EXPECT_EQ(text.indexOf(u"ab", 1, Qt::CaseInsensitive), 3);
    EXPECT_EQ(narrow.indexOf("ab", 1, Qt::CaseInsensitive), 3);
    EXPECT_EQ(narrow.indexOf("x"), -1);
    EXPECT_EQ(narrow.indexOf("a", 9), -1);
    EXPECT_TRUE(text.endsWithCaseInsen(u"CAB"));
    EXPECT_FALSE(text.startsWithCaseSen(u"A"));
}

}  // namespace
