#include "input/returnInText.h"

#include <algorithm>
#include <string>

namespace vxP {

namespace {

constexpr std::size_t longestText =
    std::max_element(searchedTexts.begin(), searchedTexts.end(),
                     [](const auto& a, const auto& b) { return a.text.size() < b.text.size(); }) -> text.size();

/// What is around a place of its line when the carriage returns are gone, as far as a text reaches to either side.
struct _surroundings {
    std::string text;
    bool isWhole = true;  ///< false: more may follow than there are bytes

    _surroundings(std::string_view bytes, std::size_t at) {
        for (std::size_t i = at; i > 0 && bytes[i - 1] != '\n' && text.size() < longestText; --i)
            if (bytes[i - 1] != carriageReturn) text += bytes[i - 1];
        std::reverse(text.begin(), text.end());
        const std::size_t full = text.size() + longestText;
        std::size_t i = at;
        for (; i < bytes.size() && bytes[i] != '\n' && text.size() < full; ++i)
            if (bytes[i] != carriageReturn) text += bytes[i];
        isWhole = i < bytes.size();
    }
};

bool holdsText(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size(); ++at)
        if (std::any_of(searchedTexts.begin(), searchedTexts.end(),
                        [&](const _searchedText& searched) { return isTextAt(bytes, at, searched); }))
            return true;
    return bytes.find(longS) != bytes.npos;
}

}  // namespace

/// Nearly all carriage returns are between bytes that are no neighbours anyway.
bool isReturnInText(std::string_view bytes, std::size_t at) {
    std::size_t before = at;
    while (before > 0 && bytes[before] == carriageReturn) --before;
    if (!neighbours.has(bytes[before], bytes[at + 1])) return false;
    const _surroundings around(bytes, at);
    return !around.isWhole || holdsText(around.text);
}

}  // namespace vxP
