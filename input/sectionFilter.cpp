#include "input/sectionFilter.h"

#include <QLatin1String>
#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "grammar/paramRules.h"
#include "input/asciiSpace.h"
#include "input/sectionKinds.h"

namespace vxP {

namespace {

using _names = std::vector<QLatin1String>;

char lowered(QLatin1String name, std::size_t position) {
    return loweredLetter(name.data()[position]);
}

bool comesBefore(QLatin1String one, QLatin1String other) {
    return std::lexicographical_compare(one.begin(), one.end(), other.begin(), other.end(),
                                        [](char a, char b) { return loweredLetter(a) < loweredLetter(b); });
}

/// The names that the readers know, by their first two characters in lower case: most parameters differ from all of
/// them there.
class _knownNames {
 public:
    _knownNames() {
        for (const _sectionKind& kind : sectionKinds())
            for (const QLatin1String name : kind.parameters()) add(name);
    }

    /// In the order of the alphabet.
    /// @param line  begins with two ASCII characters
    const _names& beginningLike(std::string_view line) const { return lists[listOf[code(line[0])][code(line[1])]]; }

 private:
    void add(QLatin1String name) {
        std::uint8_t& list = listOf[code(name.data()[0])][code(name.data()[1])];
        if (list == 0) {
            list = static_cast<std::uint8_t>(lists.size());
            lists.emplace_back();
        }
        _names& names = lists[list];
        names.insert(std::upper_bound(names.begin(), names.end(), name, comesBefore), name);
    }

    static std::size_t code(char letter) { return static_cast<unsigned char>(loweredLetter(letter)); }

    std::vector<_names> lists{1};  ///< the first one is empty
    std::array<std::array<std::uint8_t, 128>, 128> listOf{};
};

/// Only decoding tells what a byte beyond ASCII or a carriage return makes of a name.
bool needsDecoding(char byte) {
    return byte < 0 || byte == '\r';
}

/// True when the line begins with one of the names, or may do so once it is decoded. Character by character the names
/// that differ are left out at either end of the list.
/// @param names  begin with the line's first two characters
bool mayBeginWithOne(std::string_view line, const _names& names) {
    auto first = names.begin();
    auto last = names.end();
    for (std::size_t at = 2; first != last; ++at) {
        if (at == static_cast<std::size_t>(first->size())) return true;
        if (at == line.size()) return false;
        if (needsDecoding(line[at])) return true;
        const char letter = loweredLetter(line[at]);
        while (first != last && lowered(*first, at) < letter) ++first;
        while (first != last && lowered(last[-1], at) > letter) --last;
    }
    return false;
}

}  // namespace

bool mayMatterToASection(std::string_view line) {
    static const _knownNames knownNames;
    while (!line.empty() && isAsciiSpace(line.front())) line.remove_prefix(1);
    if (line.empty() || line.front() == '#') return false;
    if (line.front() == '}' || needsDecoding(line.front())) return true;
    if (line.size() < 2) return false;
    return needsDecoding(line[1]) || mayBeginWithOne(line, knownNames.beginningLike(line));
}

}  // namespace vxP
