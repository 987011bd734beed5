// Look-ups in the ordered lists of the catalogues: the first match in list order wins.
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

/// Position of the first entry that lists the driver (compared exactly), or -1.
template <typename Entry>
qint32 indexOfDriver(const QList<Entry>& list, const QString& renderNode) {
    return indexOfFirst(list, [&](const Entry& entry) { return entry.renderNodes.contains(renderNode); });
}

/// Position of the first entry of that LOP path (in any letter case). When there is none: -1, or with `create` the
/// position of a new entry of that path.
template <typename Entry>
qint32 indexOfLop(QList<Entry>& list, const QString& path, bool create) {
    const qint32 index =
        indexOfFirst(list, [&](const Entry& entry) { return entry.lopName.compare(path, Qt::CaseInsensitive) == 0; });
    if (index >= 0 || !create) return index;
    Entry entry;
    entry.lopName = path;
    list.append(entry);
    return static_cast<qint32>(list.size()) - 1;
}

}  // namespace vxP
