// The scan's texts as the search for candidates looks for them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "input/sceneTexts.h"

namespace vxP {

/// A text, found by three bytes of it that follow each other: its anchor.
struct _searchedText {
    std::string_view text;
    std::size_t anchor;  ///< position of the three bytes: the rarer, the better
    bool anyCase;
};

/// Without an "s" where letter case does not count: a long s, two bytes beyond ASCII, equals it.
inline constexpr std::array searchedTexts{
    _searchedText{sectionSuffix, 0, false},
    _searchedText{saveVersionName.substr(0, saveVersionName.find('S')), 0, true},
    _searchedText{variableCommand.substr(1), 3, true},
    _searchedText{frameRangeCommand, 0, true},
    _searchedText{takeCommand, 1, false},
};

constexpr std::uint8_t code(char byte) {
    return static_cast<std::uint8_t>(byte);
}

constexpr bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

constexpr char otherCase(char byte) {
    return isLetter(byte) ? static_cast<char>(byte ^ 0x20) : byte;
}

/// True when the text's anchor at `anchor` is one.
inline bool isTextAt(std::string_view bytes, std::size_t anchor, const _searchedText& searched) {
    if (anchor < searched.anchor) return false;
    const std::string_view found = bytes.substr(anchor - searched.anchor, searched.text.size());
    return found.size() == searched.text.size() &&
           std::equal(found.begin(), found.end(), searched.text.begin(), [&](char byte, char wanted) {
               return byte == wanted || (searched.anyCase && byte == otherCase(wanted));
           });
}

}  // namespace vxP
