#include "grammar/nameText.h"

#include "grammar/markedText.h"
#include "scan/scanBudget.h"

namespace vxP {

void appendToName(QString& name, const QString& text) {
    if (name.size() < longestName) name += QStringView(text).left(longestName - name.size());
}

void replaceInName(QString& name, const QString& before, const QString& after, Qt::CaseSensitivity sensitivity) {
    spendWork(replacementCost, name.size() / 8);
    _size found = placeOf(name, QStringView(before), 0, sensitivity);
    if (found < 0) return;
    QString replaced;
    _size copied = 0;
    for (; found >= 0 && replaced.size() < longestName;
         found = placeOf(name, QStringView(before), copied, sensitivity)) {
        spendWork(occurrenceCost);
        replaced += QStringView(name).mid(copied, found - copied);
        replaced += QStringView(after).left(longestName);
        copied = found + before.size();
    }
    replaced += QStringView(name).mid(copied);
    replaced.truncate(longestName);
    spendWork(replacedNameCost, replaced.size());
    name = replaced;
}

}  // namespace vxP
