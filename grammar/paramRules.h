// What the tables of parameter rules have in common: a rule has a `name`, the beginning of the lines that it is for, in
// any letter case; the first rule that matches wins.
#pragma once

#include <QLatin1String>
#include <QString>
#include <array>
#include <cstddef>

namespace vxP {

constexpr char loweredLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// True when `longer` begins with `shorter`, in any letter case.
constexpr bool beginsName(QLatin1String longer, QLatin1String shorter) {
    if (longer.size() < shorter.size()) return false;
    for (auto i = decltype(shorter.size()){0}; i < shorter.size(); ++i)
        if (loweredLetter(longer.data()[i]) != loweredLetter(shorter.data()[i])) return false;
    return true;
}

/// The names of a table, in its order.
template <typename Rule, std::size_t Size>
constexpr std::array<QLatin1String, Size> ruleNames(const std::array<Rule, Size>& rules) {
    std::array<QLatin1String, Size> names{};
    for (std::size_t row = 0; row < Size; ++row) names[row] = rules[row].name;
    return names;
}

/// For a line's first letter the rows of a table that may match it, in the table's order, so that a line is compared
/// with a few names and not with all.
template <std::size_t Size>
class _rowsByLetter {
 public:
    template <typename Rule>
    constexpr explicit _rowsByLetter(const std::array<Rule, Size>& rules) {
        for (auto& row : firstRows) row = Size;
        for (std::size_t row = Size; row-- > 0;) {
            std::size_t& first = firstRows[code(rules[row].name.data()[0])];
            nextRows[row] = first;
            first = row;
        }
    }

    /// First row for the line, or `Size`.
    std::size_t first(const QString& line) const {
        const char16_t letter = line.isEmpty() ? u'\0' : line.at(0).toCaseFolded().unicode();
        return letter < firstRows.size() ? firstRows[code(static_cast<char>(letter))] : Size;
    }
    /// Row after `row` for the same letter, or `Size`.
    constexpr std::size_t next(std::size_t row) const { return nextRows[row]; }

 private:
    static constexpr std::size_t code(char letter) { return static_cast<unsigned char>(loweredLetter(letter)); }

    std::array<std::size_t, 128> firstRows{};
    std::array<std::size_t, Size> nextRows{};
};

}  // namespace vxP
