// Items that are found by their names, and what they take in memory.
#pragma once

#include <QtGlobal>
#include <algorithm>
#include <deque>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

namespace vxN {

/// Positions of items ordered by a name of theirs, items of equal names by their position.
template <typename Items, typename Name>
void orderByName(std::vector<quint32>& positions, const Items& items, Name name) {
    std::stable_sort(positions.begin(), positions.end(),
                     [&](quint32 a, quint32 b) { return name(items[a]) < name(items[b]); });
}

template <typename Items, typename Name>
std::vector<quint32> indexByName(const Items& items, Name name) {
    std::vector<quint32> positions(items.size());
    std::iota(positions.begin(), positions.end(), quint32{0});
    orderByName(positions, items, name);
    return positions;
}

/// The last item of a name; null: none.
template <typename Item, typename Name>
const Item* findLast(const std::vector<Item>& items, const std::vector<quint32>& ordered, std::string_view wanted,
                     Name name) {
    const auto behind = std::upper_bound(ordered.begin(), ordered.end(), wanted,
                                         [&](std::string_view text, quint32 at) { return text < name(items[at]); });
    if (behind == ordered.begin()) return nullptr;
    const Item& item = items[*(behind - 1)];
    return name(item) == wanted ? &item : nullptr;
}

template <typename Item>
qint64 bytesOfItems(const std::vector<Item>& items) {
    return static_cast<qint64>(items.capacity()) * qint64{sizeof(Item)};
}

/// Of a text and of what was made from its parts.
inline qint64 bytesOfText(const std::string& source, const std::deque<std::string>& made) {
    std::size_t bytes = source.capacity();
    for (const std::string& text : made) bytes += sizeof(std::string) + text.capacity();
    return static_cast<qint64>(bytes);
}

}  // namespace vxN
