// Columns of texts in the room that a terminal has.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace vxH {

constexpr int columnGap = 2;  ///< blanks between two texts

/// What a column asks for. Widths are in columns of the terminal.
struct _columnNeed {
    int needed;  ///< by its texts; 0: it is left out
    int enough;  ///< in which they say most: a column of no weight goes rather than that others get less
    int least;   ///< in which they still say something
    int rank;    ///< 0: the last to be left out and the first to get what it needs
    bool hasWeight;
};

/// Of a line with columns of these widths, of which those of 0 are left out.
int lineWidth(const std::vector<int>& widths);

std::vector<int> neededWidths(const std::vector<_columnNeed>& needs);

/// Places of the columns by their ranks.
std::vector<std::size_t> columnsByRank(const std::vector<_columnNeed>& needs);

using _mayGo = std::function<bool(const std::vector<int>& widths, std::size_t column)>;

/// Widths at which lines fit the room; 0: the column is left out. The one of rank 0 stays in any room.
/// @param mayGo  true for a column, of those that are shown, without which rows still differ as they do with it
std::vector<int> fittedWidths(const std::vector<_columnNeed>& needs, int room, const _mayGo& mayGo);

}  // namespace vxH
