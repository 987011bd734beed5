// The words and quoted strings that a scene's texts are made of.
#pragma once

#include <QtGlobal>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace vxN {

constexpr bool isBlank(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
}

struct _token {
    std::string_view text;  ///< as it stands in the source, without the quotes around it
    bool isQuoted = false;

    bool is(std::string_view word) const { return !isQuoted && text == word; }
};

/// Hands out the tokens of a text one by one: a quoted string, which may span lines, or what stands between blanks.
class _textTokens {
 public:
    explicit _textTokens(std::string_view source) : left(source) {}

    /// None at the end, which a string without its second quote lies behind.
    std::optional<_token> next();
    /// Tells whether the next token is this word.
    bool peekIs(std::string_view word) const { return _textTokens(*this).take(word); }
    /// Takes the next token if it is this word.
    bool take(std::string_view word);
    /// Takes all up to the bracket "}" that closes one which was taken.
    void skipBlock();
    /// What has not been taken, blanks in front of it aside.
    std::string_view rest();

 private:
    std::string_view left;
};

/// Bare and quoted texts escape the quote and the backslash, by a backslash. `made` keeps what is not in the source.
std::string_view unescaped(std::string_view text, std::deque<std::string>& made);
/// The same, and the quotes around it go where they are escaped themselves: \"density\" means density.
std::string_view unescapedInner(_token token, std::deque<std::string>& made);

/// The number that is the whole text; none for all that is not finite.
std::optional<double> numberIn(std::string_view text);
/// A whole number of 0 or more.
std::optional<quint32> countIn(std::string_view text);

/// The first line, which `text` loses with its end.
std::string_view takeLine(std::string_view& text);
std::string_view trimmed(std::string_view text);

}  // namespace vxN
