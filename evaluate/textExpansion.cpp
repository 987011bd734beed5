// Finds variables and back-quotes in texts.
#include "evaluate/textExpansion.h"

#include <algorithm>

#include "evaluate/surroundings.h"
#include "evaluate/tokens.h"

namespace vxV {

namespace {

constexpr std::string_view partLetters = "rhte";

/// ":r" and the like, at the begin of a text and not the begin of a word.
char partAtStart(std::string_view text) {
    if (text.size() < 2 || text[0] != ':' || partLetters.find(text[1]) == std::string_view::npos) return 0;
    return text.size() == 2 || !isNamePart(text[2]) ? text[1] : '\0';
}

/// The variable that begins with the "$" at the start of a text; no name: none does.
_variableUse variableAtStart(std::string_view text) {
    const bool inBraces = text.size() > 1 && text[1] == '{';
    _variableUse use;
    use.name = nameAtStart(text.substr(inBraces ? 2 : 1));
    if (use.name.empty() || isDigit(use.name.front())) return {};
    std::size_t end = (inBraces ? 2 : 1) + use.name.size();
    use.part = partAtStart(text.substr(end, inBraces ? 2 : 3));
    if (use.part != 0) end += 2;
    if (inBraces && (end >= text.size() || text[end++] != '}')) return {};
    use.written = text.substr(0, end);
    return use;
}

class _expansion {
 public:
    _expansion(std::string_view text, const _textSources& ofSources) : left(text), sources(ofSources) {}
    _textOutcome run();

 private:
    _textOutcome next();
    std::string take(std::size_t count);

    std::string_view left;
    const _textSources& sources;
};

std::string _expansion::take(std::size_t count) {
    const std::string_view taken = left.substr(0, count);
    left.remove_prefix(taken.size());
    return std::string(taken);
}

_textOutcome _expansion::run() {
    std::string result;
    while (!left.empty()) {
        const _textOutcome part = next();
        if (!part) return part;
        result += *part;
        if (result.size() > longestText) return unknown(_reason::tooLong, std::string(left));
    }
    return result;
}

_textOutcome _expansion::next() {
    const std::size_t plain = std::min(left.find_first_of("\\$`"), left.size());
    if (plain > 0) return take(plain);
    if (left.front() == '\\') {
        const bool escapes = left.size() > 1 && (left[1] == '$' || left[1] == '`');
        if (left.starts_with("\\\\$") || left.starts_with("\\\\`")) return unknown(_reason::uncertain, take(3));
        if (escapes) take(1);
        return take(1);
    }
    if (left.front() == '`') {
        const std::size_t end = std::min(left.find('`', 1), left.size());
        const std::string_view expression = left.substr(1, end - 1);
        left.remove_prefix(std::min(end + 1, left.size()));
        return sources.expression(expression);
    }
    const _variableUse use = variableAtStart(left);
    if (use.name.empty()) {
        return left.starts_with("${") ? _textOutcome(unknown(_reason::syntax, std::string(left))) : take(1);
    }
    left.remove_prefix(use.written.size());
    return sources.variable(use);
}

}  // namespace

_textOutcome expandText(std::string_view text, const _textSources& sources) {
    return _expansion(text, sources).run();
}

std::string partOfName(const std::string& name, char part) {
    const std::size_t file = name.rfind('/') + 1;
    const std::size_t point = name.rfind('.');
    const bool hasExtension = point != std::string::npos && point > file;
    switch (part) {
        case 'r':
            return hasExtension ? name.substr(0, point) : name;
        case 'e':
            return hasExtension ? name.substr(point + 1) : std::string();
        case 'h':
            return file > 0 ? name.substr(0, std::max<std::size_t>(file - 1, 1)) : name;
        case 't':
            return name.substr(file);
        default:
            return name;
    }
}

}  // namespace vxV
