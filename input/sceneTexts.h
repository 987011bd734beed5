// The texts by which the scan knows a line. The search for candidates looks for these very texts.
#pragma once

#include <string_view>

#include "grammar/paramSection.h"
#include "shared/vxLatin.h"

namespace vxP {

using vxS::latin;
using vxS::viewOf;

constexpr std::string_view frameRangeCommand{"frange"};
constexpr std::string_view saveVersionName{"_HIP_SAVEVERSION"};
constexpr std::string_view variableCommand{"set -g "};
constexpr std::string_view assignment{" = "};
constexpr std::string_view takeCommand{"take name"};

}  // namespace vxP
