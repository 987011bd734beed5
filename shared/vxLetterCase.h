// Letter case as Qt folds it, which is quick where a character is ASCII, as nearly all are.
#pragma once

#include <QChar>

namespace vxS {

constexpr char16_t loweredAscii(char16_t character) {
    return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character - u'A' + u'a') : character;
}

/// One character of a text; a pair of surrogates has to be folded as one.
inline QChar foldedCase(QChar character) {
    const char16_t unit = character.unicode();
    return QChar(unit < 128 ? loweredAscii(unit) : character.toCaseFolded().unicode());
}

}  // namespace vxS
