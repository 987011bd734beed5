// What the operators do with numbers and texts.
#include "evaluate/operators.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace vxV {

namespace {

template <typename Calculation>
_valueOutcome calculated(const _value& left, const _value& right, std::string_view sign, Calculation calculation) {
    const _numberOutcome a = numberOf(left);
    if (!a) return a.why();
    const _numberOutcome b = numberOf(right);
    if (!b) return b.why();
    return finite(calculation(*a, *b), sign);
}

bool isText(const _value& value) {
    return std::holds_alternative<std::string>(value);
}

/// Texts are joined, and a number behind a text with it.
_valueOutcome add(const _value& left, const _value& right) {
    if (!isText(left) && !isText(right)) return calculated(left, right, "+", std::plus());
    if (!isText(left)) return unknown(_reason::uncertain, "+");
    const _textOutcome behind = textOf(right);
    if (!behind) return behind.why();
    return _value(std::get<std::string>(left) + *behind);
}

_valueOutcome divide(const _value& left, const _value& right) {
    return calculated(left, right, "/", std::divides());
}

/// The remainder; how it is signed where a side is negative is not certain.
_valueOutcome remainder(const _value& left, const _value& right) {
    const _numberOutcome a = numberOf(left);
    const _numberOutcome b = numberOf(right);
    if (a && b && (*a < 0 || *b < 0)) return unknown(_reason::uncertain, "%");
    return calculated(left, right, "%", [](double x, double y) { return std::fmod(x, y); });
}

/// Not equal, and so close that a comparison with a tolerance would take them for equal.
bool nearlyEqual(const _value& left, const _value& right) {
    constexpr double tolerance = 1e-5;
    const _numberOutcome a = numberOf(left);
    const _numberOutcome b = numberOf(right);
    return a && b && *a != *b && std::fabs(*a - *b) <= tolerance * std::max(std::fabs(*a), std::fabs(*b));
}

/// Two texts are equal when all their bytes are.
template <typename Comparison>
_valueOutcome compareEqual(const _value& left, const _value& right, std::string_view sign, Comparison comparison) {
    if (isText(left) && isText(right)) {
        return _value(comparison(std::get<std::string>(left), std::get<std::string>(right)) ? 1.0 : 0.0);
    }
    if (nearlyEqual(left, right)) return unknown(_reason::uncertain, std::string(sign));
    return calculated(left, right, sign, [&](double a, double b) { return comparison(a, b) ? 1.0 : 0.0; });
}

template <typename Comparison>
_valueOutcome compareOrder(const _value& left, const _value& right, std::string_view sign, Comparison comparison) {
    if (isText(left) && isText(right)) return unknown(_reason::uncertain, std::string(sign));
    return calculated(left, right, sign, [&](double a, double b) { return comparison(a, b) ? 1.0 : 0.0; });
}

using _in = const _value&;

constexpr std::array operators{
    _operator{"||", 1, _operands::logicalOr, nullptr},
    _operator{"&&", 2, _operands::logicalAnd, nullptr},
    _operator{"==", 3, _operands::values, [](_in a, _in b) { return compareEqual(a, b, "==", std::equal_to()); }},
    _operator{"!=", 3, _operands::values, [](_in a, _in b) { return compareEqual(a, b, "!=", std::not_equal_to()); }},
    _operator{"<", 4, _operands::values, [](_in a, _in b) { return compareOrder(a, b, "<", std::less()); }},
    _operator{">", 4, _operands::values, [](_in a, _in b) { return compareOrder(a, b, ">", std::greater()); }},
    _operator{"<=", 4, _operands::values, [](_in a, _in b) { return compareOrder(a, b, "<=", std::less_equal()); }},
    _operator{">=", 4, _operands::values, [](_in a, _in b) { return compareOrder(a, b, ">=", std::greater_equal()); }},
    _operator{"+", 5, _operands::values, add},
    _operator{"-", 5, _operands::values, [](_in a, _in b) { return calculated(a, b, "-", std::minus()); }},
    _operator{"*", 6, _operands::values, [](_in a, _in b) { return calculated(a, b, "*", std::multiplies()); }},
    _operator{"/", 6, _operands::values, divide},
    _operator{"%", 6, _operands::values, remainder},
    _operator{"^", powerBinding, _operands::values,
              [](_in a, _in b) { return calculated(a, b, "^", [](double x, double y) { return std::pow(x, y); }); }},
};

}  // namespace

const _operator* binaryOperator(std::string_view sign) {
    for (const _operator& candidate : operators) {
        if (candidate.sign == sign) return &candidate;
    }
    return nullptr;
}

bool isUnary(std::string_view sign) {
    return sign == "-" || sign == "+" || sign == "!";
}

_valueOutcome applyUnary(std::string_view sign, const _value& operand) {
    const _numberOutcome number = numberOf(operand);
    if (!number) return number.why();
    if (sign == "!") return _value(*number == 0 ? 1.0 : 0.0);
    return _value(sign == "-" ? -*number : *number);
}

_outcome<bool> isTrue(const _value& value) {
    const _numberOutcome number = numberOf(value);
    if (!number) return number.why();
    return *number != 0;
}

}  // namespace vxV
