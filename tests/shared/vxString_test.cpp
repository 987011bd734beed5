#include "shared/vxString.h"

#include <gtest/gtest.h>

#include <cstring>

#include "shared/vxString8.h"
#include "tests/testText.h"

using vxTest::plainOf;

namespace {

using _wide10 = vxS::_vxString<10>;
using _narrow10 = vxS::_vxString8_allSize<10>;

/// Overwrites the length word, as a broken host would.
template <class Text>
void setLengthWord(Text& text, quint16 length) {
    std::memcpy(static_cast<void*>(&text), &length, sizeof length);
}

template <class Text, class Change, class Make>
void expectChange(const char* before, Change change, Make text, const char* after) {
    struct {
        Text text;
        quint16 behind = 0x5A5A;
    } field;
    field.text = text(before);
    change(field.text, text);
    EXPECT_EQ(plainOf(field.text), after);
    EXPECT_EQ(field.text.view().data()[field.text.length()], decltype(*field.text.view().data()){});
    EXPECT_EQ(field.behind, 0x5A5A);
}

/// Makes the same change to a text of either width; `s` makes its arguments.
template <class Change>
void expectChanges(const char* before, Change change, const char* after) {
    SCOPED_TRACE(after);
    expectChange<_wide10>(before, change, vxTest::wide, after);
    expectChange<_narrow10>(
        before, change, [](const char* text) { return std::string_view(text); }, after);
}

TEST(FixedText, StaysWithinItsCapacity) {
    expectChanges(
        "", [](auto& t, auto s) { t = s("1234567890"); }, "1234567890");
    expectChanges(
        "", [](auto& t, auto s) { t = s("12345678901"); }, "1234567890");
    expectChanges(
        "abcdefgh", [](auto& t, auto s) { t.insert(2, s("1234")); }, "ab1234cdef");
    expectChanges(
        "abc", [](auto& t, auto) { t.insert(1, t.view()); }, "aabcbc");
    expectChanges(
        "a.b.c.d", [](auto& t, auto s) { t.replaceCaseSen(s("."), s("-+-")); }, "a-+-b-+-c-");
}

TEST(FixedText, ChangesOnlyWhatItHolds) {
    for (const int outside : {-1, 4})
        expectChanges(
            "abc", [&](auto& t, auto s) { t.insert(outside, s("x")); }, "abc");
    expectChanges(
        "abcdef", [](auto& t, auto) { t.remove(4, 100); }, "abcd");
    expectChanges(
        "abc", [](auto& t, auto) { (t.remove(3, 1), t.remove(-1, 2), t.remove(1, -1)); }, "abc");
    expectChanges(
        "abcdef", [](auto& t, auto) { t.setLength(2); }, "ab");
    expectChanges(
        "abc", [](auto& t, auto) { (t.setLength(7), t.setLength(-1)); }, "abc");
    expectChanges(
        "aaaa", [](auto& t, auto s) { t.replaceCaseSen(s("aa"), s("a")); }, "aa");
    expectChanges(
        "AbaB", [](auto& t, auto s) { t.replaceCaseInsen(s("aB"), s("x")); }, "xx");
    expectChanges(
        "Abab", [](auto& t, auto s) { t.replaceCaseSen(s("ab"), s("x")); }, "Abx");
    expectChanges(
        "abc", [](auto& t, auto s) { t.replaceCaseSen(s(""), s("x")); }, "abc");
}

TEST(FixedText, RecoversFromABrokenLength) {
    expectChanges(
        "abc", [](auto& t, auto) { (setLengthWord(t, 0xFFFF), t.remove(3, 100)); }, "abc");
    expectChanges(
        "abc", [](auto& t, auto) { (setLengthWord(t, 11), t.setLength(2)); }, "ab");
    _wide10 text(u"abc");
    setLengthWord(text, 0xFFFF);
    EXPECT_EQ(text.length(), 10);
}

TEST(FixedText, StoresLatinAndMarksTheRest) {
    const _narrow10 text(QStringView(u"\u00E4\u0100z"));
    EXPECT_EQ(text.view(), "\xE4?z");
    EXPECT_EQ(text.toQString(), QStringLiteral("\u00E4?z"));
}

TEST(FixedText, ComparesAcrossCapacitiesAndFindsInEitherCase) {
    EXPECT_TRUE(_wide10(u"ab") < vxS::_vxString<5>(u"abc"));
    EXPECT_FALSE(_narrow10("abc") == vxS::_vxString8_allSize<5>("abC"));
    for (const auto& [letterCase, found] : {std::pair{Qt::CaseSensitive, 6}, {Qt::CaseInsensitive, 3}}) {
        EXPECT_EQ(_wide10(u"abcABCab").indexOf(u"ab", 1, letterCase), found);
        EXPECT_EQ(_narrow10("abcABCab").indexOf("ab", 1, letterCase), found);
    }
    EXPECT_EQ(_narrow10("abc").indexOf("a", 9), -1);
    EXPECT_TRUE(_wide10(u"abcABCab").endsWithCaseInsen(u"CAB"));
}

}  // namespace
