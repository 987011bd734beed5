#include "catalogues/listIndex.h"

#include <algorithm>

#include "shared/vxLetterCase.h"

namespace vxP {

qint64 bytesOfListed(const QString& driver) {
    return bytesAroundList + static_cast<qint64>(sizeof driver) + bytesOf(driver);
}

QString foldedForm(const QString& text) {
    spendWork(foldingCost, text.size());
    QString form = text;
    QChar* const characters = form.data();
    for (_size i = 0; i < form.size(); ++i) {
        const QChar character = characters[i];
        const bool isPair = character.isHighSurrogate() && i + 1 < form.size() && characters[i + 1].isLowSurrogate();
        if (!isPair) {
            characters[i] = vxS::foldedCase(character);
            continue;
        }
        const char32_t folded = QChar::toCaseFolded(QChar::surrogateToUcs4(character, characters[i + 1]));
        characters[i] = QChar(QChar::highSurrogate(folded));
        characters[++i] = QChar(QChar::lowSurrogate(folded));
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
