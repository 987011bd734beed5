// The texts by which the scan knows a line. The search for candidates looks for these very texts.
#pragma once

#include <QLatin1String>
#include <string_view>

#include "grammar/paramSection.h"

namespace vxP {

constexpr std::string_view frameRangeCommand{"frange"};
constexpr std::string_view saveVersionName{"_HIP_SAVEVERSION"};
constexpr std::string_view variableCommand{"set -g "};
constexpr std::string_view assignment{" = "};
constexpr std::string_view takeCommand{"take name"};

/// The same text for Qt.
constexpr QLatin1String latin(std::string_view text) {
    return QLatin1String(text.data(), static_cast<_size>(text.size()));
}

}  // namespace vxP
