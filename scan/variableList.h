// The variables of a scene: kept in little memory, and found by what follows a "$".
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <deque>
#include <vector>

#include "shared/vxString.h"

namespace vxP {

using vxS::_size;

/// A scene variable: duplicates are allowed, the order matters.
struct _namevalue {
    QString name;
    QString value;
};

/// Variables in an order that matters. A million of them take some 50 MB; finding one does not look at the others.
class _variableList {
 public:
    _variableList() = default;
    _variableList(const QList<_namevalue>& variables);  // NOLINT(google-explicit-constructor): the same list, compact

    void append(QStringView name, QStringView value);
    void clear() { *this = _variableList(); }
    /// Longest name first; names of equal length keep their order.
    void orderByLength();

    _size size() const { return static_cast<_size>(entries.size()); }
    bool isEmpty() const { return entries.empty(); }
    _namevalue at(_size position) const { return {nameOf(position), valueOf(position)}; }

    QList<_namevalue> toList() const;

    /// First variable at or after position `from` whose name follows one of the marks, in any letter case, directly or
    /// after a "{"; -1: none. The empty name follows every mark.
    /// @param marks  positions of "$" in the text
    _size firstNamedIn(QStringView text, const QList<_size>& marks, _size from) const;
    /// Values of all variables of that name in any letter case, in order.
    QStringList valuesOf(QStringView name) const;

    /// Bytes that the list needs for one more variable.
    static qint64 bytesOf(QStringView name, QStringView value);

 private:
    /// One variable; its value follows its name.
    struct _entry {
        quint32 start;  ///< in `texts`
        quint32 nameLength;
        quint32 valueLength;
        bool isWide;  ///< 16-bit characters, else Latin-1
    };
    /// Finds variables by the hash of their folded names; ordered by both members.
    struct _key {
        quint32 hash;
        quint32 position;
        friend bool operator<(const _key& a, const _key& b) {
            return a.hash != b.hash ? a.hash < b.hash : a.position < b.position;
        }
    };

    QString nameOf(_size position) const;
    QString valueOf(_size position) const;
    void store(QStringView text, bool isWide);
    QString textOf(const _entry& entry, quint32 from, quint32 length) const;
    void indexNewEntries() const;
    _size firstOf(quint32 hash, QStringView name, _size from) const;
    _size firstBeginning(QStringView text, _size from) const;

    // Neither frees a block while it grows: for a moment there would be two of them, and a gap after it.
    std::deque<_entry> entries;
    std::deque<char> texts;
    mutable std::vector<_key> keys;
    mutable std::vector<bool> hasNameOf;  ///< by length in characters
};

}  // namespace vxP
