// Look-ups in the ordered lists of the catalogues.
#pragma once

#include <QList>
#include <algorithm>

namespace vxP {

/// Position of the first entry that fulfils the predicate, or -1.
template <typename Entry, typename Predicate>
qint32 indexOfFirst(const QList<Entry>& list, Predicate predicate) {
    const auto found = std::find_if(list.cbegin(), list.cend(), predicate);
    return found == list.cend() ? -1 : static_cast<qint32>(found - list.cbegin());
}

}  // namespace vxP
