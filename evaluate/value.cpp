// Numbers and texts, one taken for the other.
#include "evaluate/value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vxV {

namespace {

constexpr double largestWhole = 1e15;
constexpr int surelyWrittenDigits = 6;
constexpr double smallestPlain = 1e-4;
constexpr double largestPlain = 1e6;
constexpr std::string_view blanks = " \t\r\n\v\f";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string shortestPlain(double number) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed).ptr;
    return {digits.begin(), end};
}

int significantDigits(std::string_view plain) {
    const auto first = plain.find_first_of("123456789");
    const auto behind = plain.substr(std::min(first, plain.size()));
    return static_cast<int>(std::count_if(behind.begin(), behind.end(), [](char c) { return c != '.'; }));
}

}  // namespace

bool readNumber(std::string_view text, double& number) {
    std::string_view digits = trimmed(text);
    if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
    const auto [behind, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && behind == digits.data() + digits.size() && std::isfinite(number);
}

_numberOutcome numberOf(const _value& value) {
    if (const auto* const number = std::get_if<double>(&value)) return *number;
    const auto& text = std::get<std::string>(value);
    double number = 0;
    if (readNumber(text, number)) return number;
    return unknown(_reason::notANumber, text);
}

_textOutcome textOf(double number) {
    if (number == 0) return std::string("0");
    const double size = std::fabs(number);
    const bool isWhole = size < largestWhole && std::floor(number) == number;
    if (isWhole || (size >= smallestPlain && size < largestPlain)) {
        const std::string plain = shortestPlain(number);
        if (isWhole || significantDigits(plain) <= surelyWrittenDigits) return plain;
        return unknown(_reason::numberAsText, plain);
    }
    return unknown(_reason::numberAsText, std::to_string(number));
}

_textOutcome textOf(const _value& value) {
    if (const auto* const text = std::get_if<std::string>(&value)) return *text;
    return textOf(std::get<double>(value));
}

_valueOutcome finite(double number, std::string_view culprit) {
    if (std::isfinite(number)) return _value(number);
    return unknown(_reason::undefinedResult, std::string(culprit));
}

}  // namespace vxV
