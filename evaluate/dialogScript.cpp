// Picks the parameters out of dialog scripts.
#include "evaluate/dialogScript.h"

#include <algorithm>
#include <deque>

#include "evaluate/tokens.h"
#include "scene/textTokens.h"

namespace vxV {

namespace {

/// Of tokens with their labels behind them the tokens.
std::vector<std::string> everySecond(const std::vector<std::string>& words) {
    std::vector<std::string> taken;
    for (std::size_t place = 0; place < words.size(); place += 2) taken.push_back(words[place]);
    return taken;
}

class _reader {
 public:
    explicit _reader(std::string_view script) : words(script) {}
    std::vector<_parameterDefinition> read();

 private:
    _parameterDefinition parameter();
    void readEntry(const vxN::_token& word, _parameterDefinition& made);
    /// The quoted words of a block in braces; none where it holds a script.
    std::vector<std::string> quotedWords(bool alsoScripts);
    std::string text(const vxN::_token& token);

    vxN::_textTokens words;
};

std::string _reader::text(const vxN::_token& token) {
    std::deque<std::string> made;
    return std::string(vxN::unescaped(token.text, made));
}

std::vector<_parameterDefinition> _reader::read() {
    std::vector<_parameterDefinition> definitions;
    while (const auto word = words.next()) {
        if (!word->is("parm") || !words.take("{")) continue;
        _parameterDefinition made = parameter();
        if (!made.type.empty()) definitions.push_back(std::move(made));
    }
    return definitions;
}

_parameterDefinition _reader::parameter() {
    _parameterDefinition made;
    while (const auto word = words.next()) {
        if (word->is("}")) break;
        readEntry(*word, made);
    }
    return made;
}

void _reader::readEntry(const vxN::_token& word, _parameterDefinition& made) {
    if (word.is("name") || word.is("type")) {
        if (const auto value = words.next()) (word.is("name") ? made.name : made.type) = text(*value);
    } else if (!word.isQuoted && word.text.starts_with("menu") && words.take("{")) {
        made.tokens = everySecond(quotedWords(false));
    } else if (word.is("default") && words.take("{")) {
        made.defaults = quotedWords(true);
    } else if (word.is("{")) {
        words.skipBlock();
    }
}

std::vector<std::string> _reader::quotedWords(bool alsoScripts) {
    std::vector<std::string> quoted;
    bool hasScript = false;
    while (const auto word = words.next()) {
        if (word->is("}")) break;
        if (word->is("{")) words.skipBlock();
        hasScript |= word->is("[");
        if (word->isQuoted) quoted.push_back(text(*word));
    }
    return hasScript && !alsoScripts ? std::vector<std::string>() : quoted;
}

/// "ramp2pos" for "ramp#pos"; a number may be an instance's in one place and belong to the name in another.
bool isInstance(std::string_view pattern, std::string_view name) {
    while (!pattern.empty() && !name.empty()) {
        if (pattern.front() == '#') {
            const auto digits =
                static_cast<std::size_t>(std::find_if_not(name.begin(), name.end(), isDigit) - name.begin());
            if (digits == 0) return false;
            pattern.remove_prefix(1);
            name.remove_prefix(digits);
        } else {
            if (pattern.front() != name.front()) return false;
            pattern.remove_prefix(1);
            name.remove_prefix(1);
        }
    }
    return pattern.empty() && name.empty();
}

}  // namespace

std::vector<_parameterDefinition> readDialogScript(std::string_view script) {
    return _reader(script).read();
}

const _parameterDefinition* findDefinition(const std::vector<_parameterDefinition>& definitions,
                                           std::string_view parameter) {
    const auto named = std::find_if(definitions.begin(), definitions.end(), [&](const _parameterDefinition& candidate) {
        return isInstance(candidate.name, parameter);
    });
    return named != definitions.end() ? &*named : nullptr;
}

}  // namespace vxV
