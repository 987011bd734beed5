#include "host/text/columnFit.h"

#include <algorithm>
#include <numeric>

namespace vxH {
namespace {

/// One column of the terminal after the other, in turn, to those that need more.
void shareSpare(std::vector<int>& widths, const std::vector<_columnNeed>& needs, const std::vector<std::size_t>& order,
                int room) {
    int spare = room - lineWidth(widths);
    for (bool isWanted = true; isWanted && spare > 0;) {
        isWanted = false;
        for (const auto column : order) {
            if (spare == 0 || widths[column] == 0 || widths[column] >= needs[column].needed) continue;
            ++widths[column];
            --spare;
            isWanted = true;
        }
    }
}

/// Leaves out columns, from the last by rank on, as long as the line is too long and one may go. The first stays.
template <class _isFree>
void leaveOut(std::vector<int>& widths, const std::vector<std::size_t>& order, int room, const _isFree& isFree) {
    const auto goes = [&](std::size_t column) {
        return widths[column] > 0 && column != order.front() && isFree(column);
    };
    while (lineWidth(widths) > room) {
        const auto last = std::find_if(order.rbegin(), order.rend(), goes);
        if (last == order.rend()) break;
        widths[*last] = 0;
    }
}

}  // namespace

int lineWidth(const std::vector<int>& widths) {
    int width = 0;
    for (const int columnWidth : widths) width += columnWidth > 0 ? columnWidth + columnGap : 0;
    return std::max(0, width - columnGap);
}

std::vector<int> neededWidths(const std::vector<_columnNeed>& needs) {
    std::vector<int> widths;
    widths.reserve(needs.size());
    for (const auto& need : needs) widths.push_back(need.needed);
    return widths;
}

std::vector<std::size_t> columnsByRank(const std::vector<_columnNeed>& needs) {
    std::vector<std::size_t> order(needs.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return needs[a].rank < needs[b].rank; });
    return order;
}

std::vector<int> fittedWidths(const std::vector<_columnNeed>& needs, int room, const _mayGo& mayGo) {
    const auto order = columnsByRank(needs);
    std::vector<int> widths;
    widths.reserve(needs.size());
    for (const auto& need : needs) widths.push_back(std::min(need.needed, need.enough));
    leaveOut(widths, order, room, [&](auto column) { return !needs[column].hasWeight && mayGo(widths, column); });
    for (const auto column : order) widths[column] = std::min(widths[column], needs[column].least);
    leaveOut(widths, order, room, [&](auto column) { return mayGo(widths, column); });
    leaveOut(widths, order, room, [](auto) { return true; });
    if (lineWidth(widths) > room) widths[order.front()] = room;
    shareSpare(widths, needs, order, room);
    return widths;
}

}  // namespace vxH
