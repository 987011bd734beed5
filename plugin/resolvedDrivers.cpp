#include "plugin/resolvedDrivers.h"

#include "scan/scanBudget.h"

namespace vxP {

_changedLines::_changedLines(const QString& own, const QString& changed) {
    const vxS::_size most = std::min(own.size(), changed.size());
    while (keptBefore < most && own.at(keptBefore) == changed.at(keptBefore)) ++keptBefore;
    const auto fromEnd = [](const QString& text, vxS::_size place) { return text.at(text.size() - 1 - place); };
    while (keptBehind < most - keptBefore && fromEnd(own, keptBehind) == fromEnd(changed, keptBehind)) ++keptBehind;
    between = changed.mid(keptBefore, changed.size() - keptBefore - keptBehind);
}

QString _changedLines::appliedTo(const QString& own) const {
    return own.left(keptBefore) + between + own.right(keptBehind);
}

qint64 _changedLines::bytes() const {
    return bytesOf(between);
}

}  // namespace vxP
