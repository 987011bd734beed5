// Carriage returns in the middle of a text that the scan knows: decoding drops them, so "fr<CR>ange 1 9" is a frange
// command like any other.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "input/searchedTexts.h"

namespace vxP {

constexpr char carriageReturn = '\r';

/// Bytes of the texts, in two groups of which each is about a product of lower and upper halves. A carriage return
/// between two of them may be inside a text.
inline constexpr std::array textBytes{std::string_view{"aeghikmnofAEGHIKMNOF"}, std::string_view{"prstv_PRSTV_ -."}};

/// Which bytes follow each other in one of the texts.
class _neighbours {
 public:
    constexpr _neighbours() {
        for (const auto& searched : searchedTexts)
            for (std::size_t i = 0; i + 1 < searched.text.size(); ++i)
                addPair(searched.text[i], searched.text[i + 1], searched.anyCase);
    }
    constexpr bool has(char before, char after) const {
        return before >= 0 && after >= 0 && pairs[code(before)][code(after)];
    }

 private:
    constexpr void addPair(char before, char after, bool anyCase) {
        for (const char first : {before, anyCase ? otherCase(before) : before})
            for (const char second : {after, anyCase ? otherCase(after) : after})
                pairs[code(first)][code(second)] = true;
    }

    std::array<std::array<bool, 128>, 128> pairs{};
};

inline constexpr _neighbours neighbours;

/// False when the carriage return at `at`, which is neither the first nor the last byte, is in the middle of no text:
/// what is before and after it follows each other in none.
bool mayBeReturnInText(std::string_view bytes, std::size_t at);

}  // namespace vxP
