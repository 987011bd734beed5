// Cuts an expression into its words.
#include "evaluate/tokens.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace vxV {

namespace {

constexpr std::string_view blanks = " \t\r\n";

/// The longer ones first.
constexpr std::array<std::string_view, 29> signs{
    "==", "!=", "<=", ">=", "&&", "||", "+=", "-=", "*=", "/=", "%=", "++", "--", "+", "-",
    "*",  "/",  "%",  "^",  "!",  "<",  ">",  "(",  ")",  "{",  "}",  ",",  ";",  "="};

/// What a backslash may stand before: the character itself is meant then.
constexpr std::string_view escapable = "\"'\\$`";

}  // namespace

std::string_view nameAtStart(std::string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isNamePart);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

void _tokens::skipBlanks() {
    left.remove_prefix(std::min(left.find_first_not_of(blanks), left.size()));
}

std::string_view _tokens::take(std::size_t count) {
    const std::string_view taken = left.substr(0, count);
    left.remove_prefix(taken.size());
    return taken;
}

_token _tokens::next() {
    skipBlanks();
    if (left.empty()) return {};
    const char first = left.front();
    if (isDigit(first) || (first == '.' && left.size() > 1 && isDigit(left[1]))) return number();
    if (isNameStart(first)) return {_tokenKind::name, take(nameAtStart(left).size()), {}, 0};
    if (first == '"' || first == '\'') return quoted(first);
    if (first == '$') return variable();
    if (first == '@') {
        const auto end =
            std::find_if_not(left.begin() + 1, left.end(), [](char c) { return isNamePart(c) || c == '.'; });
        return {_tokenKind::contextOption, take(static_cast<std::size_t>(end - left.begin())), {}, 0};
    }
    for (const std::string_view sign : signs) {
        if (left.starts_with(sign)) return {_tokenKind::sign, take(sign.size()), {}, 0};
    }
    return {_tokenKind::unreadable, take(1), {}, 0};
}

_token _tokens::number() {
    double value = 0;
    const auto [behind, error] = std::from_chars(left.data(), left.data() + left.size(), value);
    const std::string_view source = take(static_cast<std::size_t>(behind - left.data()));
    const bool endsThere = error == std::errc() && (left.empty() || !isNamePart(left.front()));
    return {endsThere ? _tokenKind::number : _tokenKind::unreadable, source, {}, value};
}

_token _tokens::quoted(char quote) {
    const std::string_view whole = left;
    take(1);
    _token token{quote == '"' ? _tokenKind::variableText : _tokenKind::plainText, {}, {}, 0};
    while (!left.empty() && left.front() != quote) {
        const bool escaped = left.front() == '\\';
        if (escaped) take(1);
        if (escaped && (left.empty() || escapable.find(left.front()) == std::string_view::npos)) {
            token.kind = _tokenKind::uncertain;
        }
        // What is escaped against the replacement of variables stays so until they are replaced.
        if (escaped && quote == '"' && !left.empty() && (left.front() == '$' || left.front() == '`'))
            token.text += '\\';
        const std::string_view character = take(1);
        token.text += character;
    }
    if (take(1).empty()) token.kind = _tokenKind::unreadable;
    token.source = whole.substr(0, whole.size() - left.size());
    return token;
}

_token _tokens::variable() {
    const std::string_view whole = left;
    take(1);
    const bool inBraces = !left.empty() && left.front() == '{';
    if (inBraces) take(1);
    const std::string_view name = take(nameAtStart(left).size());
    const bool closed = !inBraces || take(1) == "}";
    if (name.empty() || !closed) return {_tokenKind::unreadable, whole.substr(0, whole.size() - left.size()), {}, 0};
    return {_tokenKind::variable, name, {}, 0};
}

}  // namespace vxV
