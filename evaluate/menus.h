// The numbers that expressions see for the tokens of menus.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "evaluate/definitions.h"

namespace vxV {

class _menus {
 public:
    /// @param source  of the scene, for its definitions; null: they are not known
    explicit _menus(const vxN::_byteSource* source);

    /// Of a menu, or a toggle; none: nothing tells it. Throws `vxP::_budgetExceeded`.
    std::optional<double> numberOf(const vxN::_node& node, std::string_view parameter, std::string_view token);
    /// The token of a number; none where the parameter is no menu, or nothing tells.
    std::optional<std::string> tokenOf(const vxN::_node& node, std::string_view parameter, double number);

 private:
    std::optional<_definitions> definitions;
};

/// The number of a token of a menu that every scene shares, and of "off" and "on"; none: of no such menu.
/// @param parameter  "trange", "ramp1interp"
std::optional<double> sharedMenuNumber(std::string_view parameter, std::string_view token);

}  // namespace vxV
