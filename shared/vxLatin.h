// The program's own texts, 8 bits a character, as Qt takes them.
#pragma once

#include <QLatin1String>
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

}  // namespace vxS
