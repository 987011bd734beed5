// Texts that begin with a mark: a variable, a back-quoted expression, the name of a channel. Only places with the mark
// are compared, and each of them is counted: where letter case does not count, Qt's own search folds every character of
// a text anew for every place, which made a load of 100 MB of brackets take 4 s instead of 0.5 s.
#pragma once

#include <QLatin1String>
#include <QString>

#include "scan/scanBudget.h"
#include "shared/vxString.h"

namespace vxP {

using vxS::_size;

/// First place of `part` in the text at or after `from`, or -1.
/// @param part  a QLatin1String or QStringView, not empty; its first character is no letter
/// Throws `_budgetExceeded`.
template <typename Part>
_size placeOf(const QString& text, Part part, _size from = 0, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) {
    const QChar mark = part.front();
    for (_size at = text.indexOf(mark, from); at >= 0; at = text.indexOf(mark, at + 1)) {
        spendWork(comparisonCost, part.size());
        if (QStringView(text).mid(at).startsWith(part, sensitivity)) return at;
    }
    return -1;
}

template <typename Part>
bool holds(const QString& text, Part part, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) {
    return placeOf(text, part, 0, sensitivity) >= 0;
}

/// The text without any `part`, which is as in `placeOf`; the one that is formed where another was stays.
template <typename Part>
QString withoutAll(const QString& text, Part part) {
    _size found = placeOf(text, part);
    if (found < 0) return text;
    QString rest;
    _size copied = 0;
    for (; found >= 0; found = placeOf(text, part, copied)) {
        rest += QStringView(text).mid(copied, found - copied);
        copied = found + static_cast<_size>(part.size());
    }
    return rest += QStringView(text).mid(copied);
}

}  // namespace vxP
