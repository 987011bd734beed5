// Tokens of menus in their order.
#include "evaluate/menus.h"

#include <algorithm>
#include <array>
#include <span>

namespace vxV {

namespace {

/// The names of parameters that have a menu: they end so, and begin with anything where they are promoted from a node
/// to the asset around it.
struct _menu {
    std::string_view nameEnd;  ///< "#": a digit
    std::span<const std::string_view> tokens;
};

constexpr std::array<std::string_view, 2> switchTokens{"off", "on"};
constexpr std::array<std::string_view, 3> rangeTokens{"off", "normal", "on"};
constexpr std::array<std::string_view, 6> transformOrders{"srt", "str", "rst", "rts", "tsr", "trs"};
constexpr std::array<std::string_view, 6> rotationOrders{"xyz", "xzy", "yxz", "yzx", "zxy", "zyx"};
constexpr std::array<std::string_view, 7> rampBases{"constant", "linear",  "catmull-rom", "monotonecubic",
                                                    "bezier",   "bspline", "hermite"};
// Of the handle of a null object what a new one has; the rest of these menus is not certain.
constexpr std::array<std::string_view, 1> nullDisplays{"icon"};
constexpr std::array<std::string_view, 1> nullControls{"null"};
constexpr std::array<std::string_view, 1> nullOrientations{"xyz"};

/// Of types that are built in, whose definitions no scene carries; the last row is for toggles.
constexpr std::array menus{
    // first match wins
    _menu{"trange", rangeTokens},           _menu{"xOrd", transformOrders},
    _menu{"rOrd", rotationOrders},          _menu{"#interp", rampBases},
    _menu{"displayicon", nullDisplays},     _menu{"controltype", nullControls},
    _menu{"orientation", nullOrientations}, _menu{"", switchTokens},
};

bool endsLike(std::string_view name, std::string_view end) {
    if (!end.starts_with('#')) return name.ends_with(end);
    if (!name.ends_with(end.substr(1)) || name.size() < end.size()) return false;
    const char digit = name[name.size() - end.size()];
    return digit >= '0' && digit <= '9';
}

/// That of toggles where no other one has such a name.
const _menu& sharedMenu(std::string_view parameter) {
    return *std::find_if(menus.begin(), menus.end(), [&](const _menu& m) { return endsLike(parameter, m.nameEnd); });
}

constexpr std::size_t mostTokens = 100'000;

}  // namespace

_menus::_menus(const vxN::_byteSource* source) {
    if (source != nullptr) definitions.emplace(*source);
}

std::optional<double> _menus::numberOf(const vxN::_node& node, std::string_view parameter, std::string_view token) {
    const _parameterDefinition* const defined = definitions ? definitions->find(node, parameter) : nullptr;
    if (defined == nullptr || !defined->isMenu()) return sharedMenuNumber(parameter, token);
    const auto place = std::find(defined->tokens.begin(), defined->tokens.end(), token);
    if (place == defined->tokens.end()) return {};
    return static_cast<double>(place - defined->tokens.begin());
}

std::optional<std::string> _menus::tokenOf(const vxN::_node& node, std::string_view parameter, double number) {
    const _parameterDefinition* const defined = definitions ? definitions->find(node, parameter) : nullptr;
    const auto place = number < 0 || number > mostTokens ? mostTokens : static_cast<std::size_t>(number);
    if (defined != nullptr && defined->isSwitch()) return std::string(switchTokens[number != 0 ? 1 : 0]);
    if (defined != nullptr && defined->isMenu() && place < defined->tokens.size()) return defined->tokens[place];
    const _menu& shared = sharedMenu(parameter);
    if (defined != nullptr || shared.nameEnd.empty() || place >= shared.tokens.size()) return {};
    return std::string(shared.tokens[place]);
}

std::optional<double> sharedMenuNumber(std::string_view parameter, std::string_view token) {
    const _menu& menu = sharedMenu(parameter);
    const auto place = std::find(menu.tokens.begin(), menu.tokens.end(), token);
    if (place == menu.tokens.end()) return {};
    return static_cast<double>(place - menu.tokens.begin());
}

}  // namespace vxV
