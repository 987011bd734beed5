// The functions of the expression language.
#pragma once

#include <span>
#include <string_view>

#include "evaluate/surroundings.h"
#include "evaluate/value.h"

namespace vxV {

/// A call whose arguments have values of the kinds that the function's row asks for.
struct _call {
    std::span<const _value> arguments;
    _surroundings& surroundings;

    double number(std::size_t place) const { return *std::get_if<double>(&arguments[place]); }
    const std::string& text(std::size_t place) const { return *std::get_if<std::string>(&arguments[place]); }
};

struct _function {
    std::string_view name;
    /// A letter for each argument: n number, t text, v either. What stands behind "?" may be left out.
    std::string_view arguments;
    /// Null for a choice: its first argument tells which of the other two is the value, and only that is evaluated.
    _valueOutcome (*evaluate)(const _call& call);
};

struct _arity {
    std::size_t least, most;
};
_arity arityOf(const _function& function);
/// The letter of an argument. @param place  below the most
char kindOf(const _function& function, std::size_t place);

/// The function of that name; null where no scene file tells its value, or where it is not known.
const _function* functionNamed(std::string_view name);
/// Why a function without a row has no value.
_reason reasonAgainst(std::string_view name);

// Rows, by what the functions work on.
std::span<const _function> numberFunctions();
std::span<const _function> textFunctions();
std::span<const _function> sceneFunctions();

}  // namespace vxV
