// Whole numbers in texts, read alike with every Qt.
#pragma once

#include <QString>
#include <charconv>

namespace vxS {

/// The decimal number that the whole text is, spaces around it ignored; 0 where it is none or needs more than 32 bits.
/// QString::toInt takes a NUL for the end of the number with Qt 6, and some signs and spaces outside ASCII with Qt 5.
inline int wholeNumber(const QString& text, bool* isNumber = nullptr) {
    const QByteArray letters = text.trimmed().toLatin1();
    const char* const end = letters.constEnd();
    const bool hasPlus = letters.startsWith('+') && !letters.startsWith("+-");
    int number = 0;
    const auto [behind, error] = std::from_chars(letters.constBegin() + (hasPlus ? 1 : 0), end, number);
    const bool isWhole = error == std::errc() && behind == end;
    if (isNumber != nullptr) *isNumber = isWhole;
    return isWhole ? number : 0;
}

}  // namespace vxS
