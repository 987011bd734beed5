// Whole numbers in texts, read alike with every Qt.
#pragma once

#include <QLocale>
#include <QString>

namespace vxS {

/// The decimal number that the whole text says, spaces around it aside; 0 when there is none or it has over 32 bits.
/// QString::toInt would take a NUL for the end of the number with Qt 6, and for no part of one with Qt 5.
inline int wholeNumber(const QString& text, bool* isNumber = nullptr) {
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::RejectGroupSeparator);
    return plain.toInt(text, isNumber);
}

}  // namespace vxS
