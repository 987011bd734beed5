#include "scene/textTokens.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vxN {

namespace {

/// Position of the quote that ends a string; npos: none.
std::size_t endOfString(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '"') return at;
        if (text[at] == '\\') ++at;
    }
    return std::string_view::npos;
}

template <typename Number>
std::optional<Number> wholeTextAs(std::string_view text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [behind, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || behind != end) return std::nullopt;
    return number;
}

}  // namespace

std::string_view _textTokens::rest() {
    left.remove_prefix(static_cast<std::size_t>(std::find_if_not(left.begin(), left.end(), isBlank) - left.begin()));
    return left;
}

std::optional<_token> _textTokens::next() {
    if (rest().empty()) return std::nullopt;
    const bool isQuoted = left.front() == '"';
    if (isQuoted) left.remove_prefix(1);
    const auto end = isQuoted
                         ? endOfString(left)
                         : static_cast<std::size_t>(std::find_if(left.begin(), left.end(), isBlank) - left.begin());
    if (end == std::string_view::npos) {
        left = {};
        return std::nullopt;
    }
    const _token token{left.substr(0, end), isQuoted};
    left.remove_prefix(end + (isQuoted ? 1 : 0));
    return token;
}

bool _textTokens::take(std::string_view word) {
    const bool isNext = rest().starts_with(word) && (left.size() == word.size() || isBlank(left[word.size()]));
    if (isNext) left.remove_prefix(word.size());
    return isNext;
}

void _textTokens::skipBlock() {
    for (int open = 1; open > 0;) {
        const auto token = next();
        if (!token) return;
        if (token->is("{")) ++open;
        if (token->is("}")) --open;
    }
}

std::string_view unescaped(std::string_view text, std::deque<std::string>& made) {
    if (text.find('\\') == std::string_view::npos) return text;
    std::string& plain = made.emplace_back();
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool escapes = text[at] == '\\' && at + 1 < text.size() && (text[at + 1] == '"' || text[at + 1] == '\\');
        if (escapes) ++at;
        plain += text[at];
    }
    return plain;
}

std::string_view unescapedInner(_token token, std::deque<std::string>& made) {
    constexpr std::string_view quote = "\\\"";
    std::string_view text = token.text;
    const bool hasInner =
        !token.isQuoted && text.size() >= 2 * quote.size() && text.starts_with(quote) && text.ends_with(quote);
    if (hasInner) text = text.substr(quote.size(), text.size() - 2 * quote.size());
    return unescaped(text, made);
}

std::optional<double> numberIn(std::string_view text) {
    const auto number = wholeTextAs<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<quint32> countIn(std::string_view text) {
    return wholeTextAs<quint32>(text);
}

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace vxN
