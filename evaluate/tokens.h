// The words of an expression: numbers, texts, names, variables and signs.
#pragma once

#include <QtGlobal>
#include <string>
#include <string_view>

namespace vxV {

enum class _tokenKind : quint8 {
    end,
    number,
    plainText,      ///< in single quotes: taken as it stands
    variableText,   ///< in double quotes: variables in it are replaced
    name,           ///< a function, a variable of a block, or a text without quotes
    variable,       ///< behind "$", braces aside
    contextOption,  ///< behind "@"
    sign,
    unreadable,
    uncertain,  ///< a text with an escape whose meaning is not certain
};

struct _token {
    _tokenKind kind = _tokenKind::end;
    std::string_view source;  ///< as it stands in the expression; of a variable and a sign the name and the sign
    std::string text;         ///< of a text: what it says
    double number = 0;
};

/// Takes one word after the other from an expression, which has to outlive it.
class _tokens {
 public:
    explicit _tokens(std::string_view expression) : left(expression) {}
    _token next();

 private:
    void skipBlanks();
    std::string_view take(std::size_t count);
    _token number();
    _token quoted(char quote);
    _token variable();

    std::string_view left;
};

constexpr bool isNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isNamePart(char c) {
    return isNameStart(c) || isDigit(c);
}
/// The letters, digits and "_" that a text begins with.
std::string_view nameAtStart(std::string_view text);

}  // namespace vxV
