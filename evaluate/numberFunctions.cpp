// Functions of numbers. Angles are in degrees.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "evaluate/functions.h"

namespace vxV {

namespace {

constexpr double degreesPerRadian = 180 / std::numbers::pi;

double fitted(double number, double oldLow, double oldHigh, double newLow, double newHigh) {
    const double share = std::clamp((number - oldLow) / (oldHigh - oldLow), 0.0, 1.0);
    return newLow + share * (newHigh - newLow);
}

double smoothed(double number, double low, double high) {
    const double share = std::clamp((number - low) / (high - low), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

/// The nearest whole number; to which side a half goes is not certain.
_valueOutcome nearest(const _call& call) {
    const double number = call.number(0);
    if (std::fabs(number - std::trunc(number)) == 0.5) return unknown(_reason::uncertain, "rounding a half");
    return _value(std::round(number));
}

_valueOutcome fraction(const _call& call) {
    const double number = call.number(0);
    if (number < 0) return unknown(_reason::uncertain, "frac of a negative number");
    return _value(number - std::floor(number));
}

_valueOutcome sign(const _call& call) {
    const double number = call.number(0);
    if (number == 0) return unknown(_reason::uncertain, "sign of 0");
    return _value(number < 0 ? -1.0 : 1.0);
}

/// Where the limits are swapped the upper one counts, as stored values show.
_valueOutcome clamped(const _call& call) {
    return _value(std::min(std::max(call.number(0), call.number(1)), call.number(2)));
}

using _in = const _call&;

constexpr std::array functions{
    _function{"if", "nnn", nullptr},
    _function{"ifs", "ntt", nullptr},
    _function{"abs", "n", [](_in c) -> _valueOutcome { return _value(std::fabs(c.number(0))); }},
    _function{"acos", "n", [](_in c) { return finite(std::acos(c.number(0)) * degreesPerRadian, "acos"); }},
    _function{"asin", "n", [](_in c) { return finite(std::asin(c.number(0)) * degreesPerRadian, "asin"); }},
    _function{"atan", "n", [](_in c) { return finite(std::atan(c.number(0)) * degreesPerRadian, "atan"); }},
    _function{"atan2", "nn",
              [](_in c) { return finite(std::atan2(c.number(0), c.number(1)) * degreesPerRadian, "atan2"); }},
    _function{"ceil", "n", [](_in c) -> _valueOutcome { return _value(std::ceil(c.number(0))); }},
    _function{"clamp", "nnn", clamped},
    _function{"cos", "n", [](_in c) { return finite(std::cos(c.number(0) / degreesPerRadian), "cos"); }},
    _function{"deg", "n", [](_in c) { return finite(c.number(0) * degreesPerRadian, "deg"); }},
    _function{"distance", "nnnnnn",
              [](_in c) {
                  const double x = c.number(3) - c.number(0);
                  return finite(std::hypot(x, c.number(4) - c.number(1), c.number(5) - c.number(2)), "distance");
              }},
    _function{"exp", "n", [](_in c) { return finite(std::exp(c.number(0)), "exp"); }},
    _function{
        "fit", "nnnnn",
        [](_in c) { return finite(fitted(c.number(0), c.number(1), c.number(2), c.number(3), c.number(4)), "fit"); }},
    _function{"fit01", "nnn",
              [](_in c) { return finite(fitted(c.number(0), 0, 1, c.number(1), c.number(2)), "fit01"); }},
    _function{"fit10", "nnn",
              [](_in c) { return finite(fitted(c.number(0), 1, 0, c.number(1), c.number(2)), "fit10"); }},
    _function{"fit11", "nnn",
              [](_in c) { return finite(fitted(c.number(0), -1, 1, c.number(1), c.number(2)), "fit11"); }},
    _function{"float", "n", [](_in c) -> _valueOutcome { return _value(c.number(0)); }},
    _function{"floor", "n", [](_in c) -> _valueOutcome { return _value(std::floor(c.number(0))); }},
    _function{"frac", "n", fraction},
    _function{"int", "n", [](_in c) -> _valueOutcome { return _value(std::trunc(c.number(0))); }},
    _function{"length", "nnn",
              [](_in c) { return finite(std::hypot(c.number(0), c.number(1), c.number(2)), "length"); }},
    _function{"lock", "n", [](_in c) -> _valueOutcome { return _value(c.number(0)); }},
    _function{"log", "n", [](_in c) { return finite(std::log(c.number(0)), "log"); }},
    _function{"log10", "n", [](_in c) { return finite(std::log10(c.number(0)), "log10"); }},
    _function{"max", "nn", [](_in c) -> _valueOutcome { return _value(std::max(c.number(0), c.number(1))); }},
    _function{"min", "nn", [](_in c) -> _valueOutcome { return _value(std::min(c.number(0), c.number(1))); }},
    _function{"pow", "nn", [](_in c) { return finite(std::pow(c.number(0), c.number(1)), "pow"); }},
    _function{"rad", "n", [](_in c) -> _valueOutcome { return _value(c.number(0) / degreesPerRadian); }},
    _function{"rint", "n", nearest},
    _function{"round", "n", nearest},
    _function{"sign", "n", sign},
    _function{"sin", "n", [](_in c) { return finite(std::sin(c.number(0) / degreesPerRadian), "sin"); }},
    _function{"smooth", "nnn", [](_in c) { return finite(smoothed(c.number(0), c.number(1), c.number(2)), "smooth"); }},
    _function{"sqrt", "n", [](_in c) { return finite(std::sqrt(c.number(0)), "sqrt"); }},
    _function{"tan", "n", [](_in c) { return finite(std::tan(c.number(0) / degreesPerRadian), "tan"); }},
};

}  // namespace

std::span<const _function> numberFunctions() {
    return functions;
}

}  // namespace vxV
