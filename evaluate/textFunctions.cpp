// Functions of texts. Lengths and positions count bytes.
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "evaluate/functions.h"

namespace vxV {

namespace {

constexpr double largestLength = 65536;

bool isCount(double number) {
    return number >= 0 && number <= largestLength && std::floor(number) == number;
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
char raised(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

template <typename Letter>
std::string changed(std::string text, Letter letter) {
    std::transform(text.begin(), text.end(), text.begin(), letter);
    return text;
}

/// 0 for equal texts, else -1 or 1.
_valueOutcome compared(const std::string& a, const std::string& b) {
    const int order = a.compare(b);
    return _value(order == 0 ? 0.0 : (order < 0 ? -1.0 : 1.0));
}

/// A pattern of "*" and "?"; what others of its kind hold besides is not certain.
bool isPlainPattern(const std::string& pattern) {
    return pattern.find_first_of("[]{}^\\ ") == std::string::npos;
}

bool matches(std::string_view pattern, std::string_view text) {
    std::size_t inPattern = 0;
    std::size_t inText = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starText = 0;
    while (inText < text.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == '*') {
            star = inPattern++;
            starText = inText;
        } else if (inPattern < pattern.size() && (pattern[inPattern] == '?' || pattern[inPattern] == text[inText])) {
            ++inPattern;
            ++inText;
        } else if (star != std::string_view::npos) {
            inPattern = star + 1;
            inText = ++starText;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', inPattern) == std::string_view::npos;
}

_valueOutcome matched(const std::string& pattern, const std::string& text) {
    if (!isPlainPattern(pattern)) return unknown(_reason::uncertain, pattern);
    return _value(matches(pattern, text) ? 1.0 : 0.0);
}

_valueOutcome part(const _call& call) {
    const std::string& text = call.text(0);
    if (!isCount(call.number(1)) || !isCount(call.number(2)) || call.number(1) > static_cast<double>(text.size())) {
        return unknown(_reason::uncertain, "substr");
    }
    return _value(text.substr(static_cast<std::size_t>(call.number(1)), static_cast<std::size_t>(call.number(2))));
}

_valueOutcome replaced(const _call& call) {
    const std::string& text = call.text(0);
    const std::string& before = call.text(1);
    if (before.empty()) return unknown(_reason::uncertain, "strreplace of nothing");
    std::string result;
    std::size_t from = 0;
    for (auto at = text.find(before); at != std::string::npos; at = text.find(before, from)) {
        result.append(text, from, at - from).append(call.text(2));
        if (result.size() > longestText) return unknown(_reason::tooLong, "strreplace");
        from = at + before.size();
    }
    return _value(result.append(text, from));
}

/// The words of a text; none where quotes or escapes might join some.
_outcome<std::vector<std::string_view>> wordsIn(std::string_view text) {
    if (text.find_first_of("\"'\\") != std::string_view::npos) return unknown(_reason::uncertain, std::string(text));
    std::vector<std::string_view> words;
    constexpr std::string_view blanks = " \t\r\n";
    for (std::size_t end = 0;;) {
        const auto start = text.find_first_not_of(blanks, end);
        if (start == std::string_view::npos) return words;
        end = std::min(text.find_first_of(blanks, start), text.size());
        words.push_back(text.substr(start, end - start));
    }
}

_valueOutcome wordCount(const _call& call) {
    const auto words = wordsIn(call.text(0));
    return words ? _valueOutcome(_value(static_cast<double>(words->size()))) : _valueOutcome(words.why());
}

/// One word, from 0; empty where there are fewer.
_valueOutcome word(const _call& call) {
    const auto words = wordsIn(call.text(0));
    if (!words) return words.why();
    if (!isCount(call.number(1))) return unknown(_reason::uncertain, "arg");
    const auto place = static_cast<std::size_t>(call.number(1));
    return _value(place < words->size() ? std::string((*words)[place]) : std::string());
}

constexpr double mostPadding = 100;
constexpr double largestPadded = 1e15;

std::string filledUp(const std::string& digits, double width) {
    const auto zeros = std::max(0.0, width - static_cast<double>(digits.size()));
    return std::string(static_cast<std::size_t>(zeros), '0') + digits;
}

/// A whole number with zeros in front.
_valueOutcome padded(double width, double number) {
    if (!isCount(width) || width > mostPadding || number < 0 || number >= largestPadded ||
        std::floor(number) != number) {
        return unknown(_reason::uncertain, "padzero");
    }
    return asValue(_textOutcome(filledUp(std::to_string(static_cast<long long>(number)), width)));
}

/// Zeros in front of the point, and so many digits behind it.
_valueOutcome paddedFraction(const _call& call) {
    const double digits = call.number(1);
    const double number = call.number(2);
    const bool isUsual = isCount(digits) && digits <= 15 && isCount(call.number(0)) && call.number(0) <= mostPadding;
    if (!isUsual || number < 0 || number >= largestPadded) return unknown(_reason::uncertain, "fpadzero");
    if (digits == 0) return padded(call.number(0), number);
    std::string written(64, '\0');
    const int length = std::snprintf(written.data(), written.size(), "%.*f", static_cast<int>(digits), number);
    written.resize(static_cast<std::size_t>(length));
    return _value(filledUp(written, call.number(0) + digits + 1));
}

_valueOutcome position(std::size_t found) {
    return _value(found == std::string::npos ? -1.0 : static_cast<double>(found));
}

using _in = const _call&;

constexpr std::array functions{
    _function{"arg", "tn", word},
    _function{"argc", "t", wordCount},
    _function{"atof", "t", [](_in c) { return asValue(numberOf(c.arguments[0])); }},
    _function{"fpadzero", "nnn", paddedFraction},
    _function{"index", "tt", [](_in c) { return position(c.text(0).find(c.text(1))); }},
    _function{"itoa", "n", [](_in c) { return asValue(textOf(std::trunc(c.number(0)))); }},
    _function{"padzero", "nn", [](_in c) { return padded(c.number(0), c.number(1)); }},
    _function{"rindex", "tt", [](_in c) { return position(c.text(0).rfind(c.text(1))); }},
    _function{"strcasecmp", "tt",
              [](_in c) { return compared(changed(c.text(0), lowered), changed(c.text(1), lowered)); }},
    _function{"strcasematch", "tt",
              [](_in c) { return matched(changed(c.text(0), lowered), changed(c.text(1), lowered)); }},
    _function{"strcat", "tt", [](_in c) -> _valueOutcome { return _value(c.text(0) + c.text(1)); }},
    _function{"strcmp", "tt", [](_in c) { return compared(c.text(0), c.text(1)); }},
    _function{"strlen", "t", [](_in c) -> _valueOutcome { return _value(static_cast<double>(c.text(0).size())); }},
    _function{"strmatch", "tt", [](_in c) { return matched(c.text(0), c.text(1)); }},
    _function{"strreplace", "ttt", replaced},
    _function{"substr", "tnn", part},
    _function{"tolower", "t", [](_in c) -> _valueOutcome { return _value(changed(c.text(0), lowered)); }},
    _function{"toupper", "t", [](_in c) -> _valueOutcome { return _value(changed(c.text(0), raised)); }},
};

}  // namespace

std::span<const _function> textFunctions() {
    return functions;
}

}  // namespace vxV
