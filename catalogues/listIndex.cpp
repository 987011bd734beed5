#include "catalogues/listIndex.h"

#include <algorithm>

namespace vxP {

qint64 bytesOfListed(const QString& driver) {
    return bytesAroundList + static_cast<qint64>(sizeof driver) + bytesOf(driver);
}

QString foldedForm(const QString& text) {
    QString form = text;
    for (_size i = 0; i < form.size(); ++i) {
        const bool isPair = form.at(i).isHighSurrogate() && i + 1 < form.size() && form.at(i + 1).isLowSurrogate();
        if (!isPair) {
            form[i] = form.at(i).toCaseFolded();
            continue;
        }
        const char32_t folded = QChar::toCaseFolded(QChar::surrogateToUcs4(form.at(i), form.at(i + 1)));
        form[i] = QChar(QChar::highSurrogate(folded));
        form[++i] = QChar(QChar::lowSurrogate(folded));
    }
    return form;
}

void _firstPositions::note(const QString& text, qint32 position) {
    const auto known = positions.find(text);
    if (known != positions.end()) {
        known->second = std::min(known->second, position);
        return;
    }
    keepMemory(bytesAroundPosition);
    positions.emplace(text, position);
}

}  // namespace vxP
