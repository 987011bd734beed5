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

/// Only decoding tells what a byte beyond ASCII or a carriage return makes of a name.
bool needsDecoding(char byte) {
    return byte < 0 || byte == '\r';
}

using _names = std::vector<QLatin1String>;

/// Names that begin with the same two characters.
class _alikeNames {
 public:
    void add(QLatin1String name) {
        if (std::find(all.begin(), all.end(), name) != all.end()) return;
        all.push_back(name);
        for (std::size_t fourth = 0; fourth < byFourth.size(); ++fourth)
            if (name.size() < 4 || lowerBits(name.data()[3]) == fourth) byFourth[fourth].push_back(name);
    }
    /// Those that the line may begin with, as far as its fourth character tells.
    const _names& perhapsOf(std::string_view line) const {
        if (line.size() < 4 || needsDecoding(line[2]) || needsDecoding(line[3])) return all;
        return byFourth[lowerBits(line[3])];
    }

 private:
    /// The same for both cases of a letter.
    static std::size_t lowerBits(char letter) { return static_cast<unsigned char>(letter) & 31U; }

    _names all;
    std::array<_names, 32> byFourth;
};

/// The names that the readers know, by their first two characters in lower case: most parameters differ from all of
/// them there.
class _knownNames {
 public:
    _knownNames() {
        for (const _sectionKind& kind : sectionKinds())
            for (const QLatin1String name : kind.parameters()) add(name);
    }

    /// Null when there are none.
    /// @param line  begins with two ASCII characters
    const _alikeNames* beginningLike(std::string_view line) const {
        const std::uint8_t list = listOf[code(line[0])][code(line[1])];
        return list == 0 ? nullptr : &lists[list];
    }

 private:
    void add(QLatin1String name) {
        std::uint8_t& list = listOf[code(name.data()[0])][code(name.data()[1])];
        if (list == 0) {
            list = static_cast<std::uint8_t>(lists.size());
            lists.emplace_back();
        }
        lists[list].add(name);
    }

    static std::size_t code(char letter) { return static_cast<unsigned char>(loweredLetter(letter)); }

    std::vector<_alikeNames> lists{1};  ///< the first one is empty
    std::array<std::array<std::uint8_t, 128>, 128> listOf{};
};

bool mayBegin(std::string_view line, QLatin1String name) {
    const std::string_view wanted(name.data(), static_cast<std::size_t>(name.size()));
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (i == line.size()) return false;
        if (loweredLetter(line[i]) != loweredLetter(wanted[i])) return needsDecoding(line[i]);
    }
    return true;
}

}  // namespace

bool mayMatterToASection(std::string_view line) {
    static const _knownNames knownNames;
    while (!line.empty() && isAsciiSpace(line.front())) line.remove_prefix(1);
    if (line.empty() || line.front() == '#') return false;
    if (line.front() == '}' || needsDecoding(line.front())) return true;
    if (line.size() < 2) return false;
    if (needsDecoding(line[1])) return true;
    const _alikeNames* const alike = knownNames.beginningLike(line);
    if (alike == nullptr) return false;
    const _names& names = alike->perhapsOf(line);
    return std::any_of(names.begin(), names.end(), [&](QLatin1String name) { return mayBegin(line, name); });
}

}  // namespace vxP
