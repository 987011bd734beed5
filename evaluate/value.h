// What an expression gives: a number or a text, or the reason why there is none.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "evaluate/reasons.h"

namespace vxV {

/// Something known, or why it is not.
template <typename Content>
class _outcome {
 public:
    _outcome(Content known) : content(std::move(known)) {}       // NOLINT(google-explicit-constructor): reads as
    _outcome(_unknown unknown) : content(std::move(unknown)) {}  // NOLINT(google-explicit-constructor): a return

    explicit operator bool() const { return content.index() == 0; }
    const Content& operator*() const { return *std::get_if<0>(&content); }
    const Content* operator->() const { return std::get_if<0>(&content); }
    const _unknown& why() const { return *std::get_if<1>(&content); }

 private:
    std::variant<Content, _unknown> content;
};

/// Texts are bytes, as they are in a scene and as the language counts them; nearly always UTF-8.
using _value = std::variant<double, std::string>;
using _valueOutcome = _outcome<_value>;
using _numberOutcome = _outcome<double>;
using _textOutcome = _outcome<std::string>;

/// The number that a whole text says, blanks around it aside.
/// @return false when it says none, or one that is not finite
bool readNumber(std::string_view text, double& number);

/// A text counts as the number that it says; else `notANumber`.
_numberOutcome numberOf(const _value& value);

/// A number as it stands in a text. Whole ones up to 15 digits, and others of at most 6 digits that need no exponent,
/// are written alike by every version; anything else is `numberAsText`.
_textOutcome textOf(const _value& value);
_textOutcome textOf(double number);

/// A number that is one; else `undefinedResult`.
_valueOutcome finite(double number, std::string_view culprit);

inline _valueOutcome asValue(const _numberOutcome& number) {
    return number ? _valueOutcome(*number) : _valueOutcome(number.why());
}
inline _valueOutcome asValue(const _textOutcome& text) {
    return text ? _valueOutcome(*text) : _valueOutcome(text.why());
}

}  // namespace vxV
