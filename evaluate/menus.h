// Menus whose order every scene shares.
#pragma once

#include <optional>
#include <string_view>

namespace vxV {

/// The number that an expression sees for the token of a menu or toggle; none: the scene does not tell it.
/// @param name  of the parameter, "trange", "ramp1interp"
std::optional<double> menuNumber(std::string_view name, std::string_view token);

}  // namespace vxV
