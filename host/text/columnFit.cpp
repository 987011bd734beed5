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

}  // namespace

int lineWidth(const std::vector<int>& widths) {
    int width = 0;
    for (const int columnWidth : widths) width += columnWidth > 0 ? columnWidth + columnGap : 0;
    return std::max(0, width - columnGap);
}

std::vector<int> neededWidths(const std::vector<_columnNeed>& needs) {
    std::vector<int> widths;
    for (const auto& need : needs) widths.push_back(need.needed);
    return widths;
}

std::vector<std::size_t> columnsByRank(const std::vector<_columnNeed>& needs) {
    std::vector<std::size_t> order(needs.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return needs[a].rank < needs[b].rank; });
    return order;
}

std::vector<int> fittedWidths(const std::vector<_columnNeed>& needs, int room,
                              const std::function<bool(const std::vector<int>&, std::size_t)>& mayGo) {
    const auto order = columnsByRank(needs);
    std::vector<int> widths;
    for (const auto& need : needs) widths.push_back(std::min(need.needed, need.least));
    const auto isThere = [&](std::size_t column) { return widths[column] > 0 && column != order.front(); };
    while (lineWidth(widths) > room && std::any_of(order.begin(), order.end(), isThere)) {
        const auto last = std::find_if(order.rbegin(), order.rend(), isThere);
        const auto light = std::find_if(order.rbegin(), order.rend(),
                                        [&](auto column) { return isThere(column) && mayGo(widths, column); });
        widths[light == order.rend() ? *last : *light] = 0;
    }
    if (lineWidth(widths) > room) widths[order.front()] = room;
    shareSpare(widths, needs, order, room);
    return widths;
}

}  // namespace vxH
