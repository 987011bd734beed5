// What a fuzz target does not compare with a plain text: fuzz/fixedStrings.cpp.
#include "shared/vxString.h"

#include <gtest/gtest.h>

#include "shared/vxString8.h"

namespace {

using _wide10 = vxS::_vxString<10>;
using _narrow10 = vxS::_vxString8_allSize<10>;

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
