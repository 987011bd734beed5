// The parts of a line that tell the scan what it is. All of them are found in one pass: whatever a line repeats, each
// of its characters is looked at once. One search for each part took 10 s for 100 MB of headers that repeat half a
// part.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "input/sceneTexts.h"
#include "jobs/renderers.h"
#include "shared/vxLetterCase.h"

namespace vxP {

/// A set of parts, one bit each.
using _partSet = std::uint64_t;

/// Parts in any order, each once.
struct _partList {
    std::array<std::string_view, 32> texts{};
    std::size_t count = 0;

    constexpr void add(std::string_view text) {
        if (!text.empty() && indexOf(text) == count) texts[count++] = text;
    }
    /// @return `count` when there is no such part
    constexpr std::size_t indexOf(std::string_view text) const {
        return static_cast<std::size_t>(std::find(texts.begin(), texts.begin() + count, text) - texts.begin());
    }
};

constexpr std::array markedRoots{viewOf(objRoot), viewOf(imgRoot), viewOf(stageRoot)};

consteval _partList listExactParts() {
    _partList parts;
    for (const std::string_view text : {sectionSuffix, assignment, viewOf(outRoot), viewOf(objRoot), renderSettingsNode,
                                        prmanNode, std::string_view{"wedge"}, std::string_view{"/wedge"},
                                        std::string_view{"/cam"}, std::string_view{"stereocam"}})
        parts.add(text);
    return parts;
}

consteval _partList listFoldedParts() {
    _partList parts;
    for (const std::string_view text : {saveVersionName, variableCommand}) parts.add(text);
    for (const std::string_view root : markedRoots) parts.add(root);
    for (const _renderer& renderer : renderers)
        for (const _nodeTypeMark& mark : renderer.nodeTypes)
            for (const std::string_view text : {mark.part, mark.unless}) parts.add(text);
    return parts;
}

inline constexpr _partList exactParts = listExactParts();    ///< letter case counts
inline constexpr _partList foldedParts = listFoldedParts();  ///< in any letter case
constexpr std::size_t firstFoldedBit = 32;

/// One of `exactParts`; any other text does not compile.
consteval _partSet part(std::string_view text) {
    if (exactParts.indexOf(text) == exactParts.count) throw "this part is not searched for";
    return _partSet{1} << exactParts.indexOf(text);
}
consteval _partSet part(QLatin1String text) {
    return part(viewOf(text));
}
/// One of `foldedParts`, or none for an empty text.
consteval _partSet partInAnyCase(std::string_view text) {
    if (text.empty()) return 0;
    if (foldedParts.indexOf(text) == foldedParts.count) throw "this part is not searched for";
    return _partSet{1} << (firstFoldedBit + foldedParts.indexOf(text));
}

/// A character in lower case as Qt folds it, as far as that is ASCII. Beyond ASCII two characters equal a letter where
/// letter case does not count: the long s and the Kelvin sign.
constexpr char16_t foldedToAscii(char16_t character) {
    if (character == u'\u017F') return u's';
    return character == u'\u212A' ? u'k' : vxS::loweredAscii(character);
}

/// The parts that a text holds.
/// @param text  ASCII
_partSet partsOf(std::string_view text);
_partSet partsOf(std::u16string_view text);

}  // namespace vxP
