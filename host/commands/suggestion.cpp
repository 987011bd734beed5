// The least number of letters that were left out, added, changed or swapped.
#include "host/commands/suggestion.h"

#include <algorithm>
#include <vector>

namespace vxH {
namespace {

constexpr int lettersForEachFault = 3;

/// Faults between two words: a letter too many, too few or another one, and neighbours that are swapped.
int faultsBetween(const QString& typed, const QString& meant) {
    const int columns = static_cast<int>(meant.size()) + 1;
    const int rows = static_cast<int>(typed.size()) + 1;
    std::vector<int> table(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
    const auto at = [&](int row, int column) -> int& {
        return table[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                     static_cast<std::size_t>(column)];
    };
    for (int row = 0; row < rows; ++row) at(row, 0) = row;
    for (int column = 0; column < columns; ++column) at(0, column) = column;
    for (int row = 1; row < rows; ++row) {
        for (int column = 1; column < columns; ++column) {
            const int changed = typed[row - 1] == meant[column - 1] ? 0 : 1;
            at(row, column) =
                std::min({at(row - 1, column) + 1, at(row, column - 1) + 1, at(row - 1, column - 1) + changed});
            const bool isSwapped =
                row > 1 && column > 1 && typed[row - 1] == meant[column - 2] && typed[row - 2] == meant[column - 1];
            if (isSwapped) at(row, column) = std::min(at(row, column), at(row - 2, column - 2) + 1);
        }
    }
    return at(rows - 1, columns - 1);
}

}  // namespace

QString suggestionFor(const QString& typed, const QStringList& known) {
    constexpr int longestWord = 100;  // none that is known comes near it
    const auto letters = static_cast<int>(typed.size());
    if (letters > longestWord) return {};
    QString nearest;
    int fewest = letters / lettersForEachFault + 1;
    for (const QString& word : known) {
        const bool isBeginning = letters > 2 && word.startsWith(typed, Qt::CaseInsensitive);
        const int faults = isBeginning ? 1 : faultsBetween(typed.toLower(), word.toLower());
        if (faults >= fewest) continue;
        fewest = faults;
        nearest = word;
    }
    return nearest.isEmpty() ? QString{} : QStringLiteral("; did you mean %1?").arg(nearest);
}

}  // namespace vxH
