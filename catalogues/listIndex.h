// Look-ups in the ordered lists of the catalogues: the first match in list order wins, however long the list is.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <map>

#include "scan/scanBudget.h"
#include "shared/vxString.h"

namespace vxP {

using vxS::_size;

/// The first position in a list at which a text occurs. Positions may be noted in any order.
class _firstPositions {
 public:
    /// @return the position, or -1
    qint32 of(const QString& text) const {
        const auto found = positions.find(text);
        return found == positions.end() ? -1 : found->second;
    }
    void note(const QString& text, qint32 position);

 private:
    std::map<QString, qint32> positions;  ///< Qt's hash would end the process where it gets no memory
};

/// Two texts have the same form exactly when they are equal in any letter case.
QString foldedForm(const QString& text);

/// Bytes that one more driver takes in an entry's list.
qint64 bytesOfListed(const QString& driver);

/// Nodes with a path, compared in any letter case, and the drivers that use them, in the order in which they were met;
/// entries are never removed, so an index stays valid.
/// @tparam Entry  has `lopName` and `renderNodes`
template <typename Entry>
class _nodeList {
 public:
    /// Position of the first entry of that path. When there is none: -1, or with `create` that of a new entry.
    qint32 find(const QString& path, bool create) {
        const QString form = foldedForm(path);
        const qint32 found = byPath.of(form);
        if (found >= 0 || !create) return found;
        keepMemory(static_cast<qint64>(sizeof(Entry)) + bytesOf(path) + bytesOf(form));
        Entry entry;
        entry.lopName = path;
        nodes.append(entry);
        try {
            byPath.note(form, lastPosition());
        } catch (...) {
            nodes.removeLast();  // list and index stay the same
            throw;
        }
        return lastPosition();
    }
    /// Position of the first entry that lists the driver (compared exactly), or -1.
    qint32 findByDriver(const QString& driver) const { return byDriver.of(driver); }
    /// Lists a driver; duplicates are kept.
    void attach(qint32 position, const QString& driver) {
        keepMemory(bytesOfListed(driver));
        byDriver.note(driver, position);
        nodes[position].renderNodes.append(driver);
    }

    Entry& operator[](qint32 position) { return nodes[position]; }
    const QList<Entry>& entries() const { return nodes; }

 private:
    qint32 lastPosition() const { return static_cast<qint32>(nodes.size()) - 1; }

    QList<Entry> nodes;
    _firstPositions byPath;    ///< by folded path
    _firstPositions byDriver;  ///< by exact path
};

}  // namespace vxP
