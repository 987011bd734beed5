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

/// The names that the readers know, by their first two characters in lower case: most parameters differ from all of
/// them there.
class _knownNames {
 public:
    _knownNames() {
        for (const _sectionKind& kind : sectionKinds())
            for (const QLatin1String name : kind.parameters()) add(name);
    }

    /// @param line  begins with two ASCII characters
    const std::vector<QLatin1String>& beginningLike(std::string_view line) const {
        return lists[listOf[code(line[0])][code(line[1])]];
    }

 private:
    void add(QLatin1String name) {
        std::uint8_t& list = listOf[code(name.data()[0])][code(name.data()[1])];
        if (list == 0) {
            list = static_cast<std::uint8_t>(lists.size());
            lists.emplace_back();
        }
        lists[list].push_back(name);
    }

    static std::size_t code(char letter) { return static_cast<unsigned char>(loweredLetter(letter)); }

    std::vector<std::vector<QLatin1String>> lists{1};  ///< the first one is empty
    std::array<std::array<std::uint8_t, 128>, 128> listOf{};
};

/// Only decoding tells what a byte beyond ASCII or a carriage return makes of a name.
bool needsDecoding(char byte) {
    return byte < 0 || byte == '\r';
}

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
    const auto& names = knownNames.beginningLike(line);
    return std::any_of(names.begin(), names.end(), [&](QLatin1String name) { return mayBegin(line, name); });
}

}  // namespace vxP
