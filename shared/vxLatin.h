// Texts of bytes as Qt takes them: the program's own, 8 bits a character, and those of a scene, UTF-8.
#pragma once

#include <QLatin1String>
#include <QString>
#include <string_view>

#include "shared/vxString.h"

namespace vxS {

/// The same text for Qt.
constexpr QLatin1String latin(std::string_view text) {
    return QLatin1String(text.data(), static_cast<_size>(text.size()));
}

constexpr std::string_view viewOf(QLatin1String text) {
    return {text.data(), static_cast<std::size_t>(text.size())};
}

/// A scene's text; bytes that are no UTF-8 become U+FFFD.
inline QString textOfUtf8(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<_size>(bytes.size()));
}

}  // namespace vxS
