#include "evaluate/pythonScript.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "evaluate/tokens.h"
#include "scan/scanBudget.h"

namespace vxV {

namespace {

constexpr std::string_view blanks = " \t\r";
constexpr std::array<std::string_view, 4> ownNode{"hou.pwd()", "pwd()", "hou.node('.')", "hou.node(\".\")"};
constexpr std::array<std::string_view, 2> numberOfChannel{"hou.ch(", "ch("};
constexpr std::array<std::string_view, 2> noEffect{"import ", "from "};

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

bool takeSuffix(std::string_view& text, std::string_view suffix) {
    if (!text.ends_with(suffix)) return false;
    text.remove_suffix(suffix.size());
    return true;
}

bool isName(std::string_view text) {
    return !text.empty() && isNameStart(text.front()) && nameAtStart(text).size() == text.size();
}

/// What a quoted text without escapes says.
std::optional<std::string_view> literalText(std::string_view text) {
    const bool isQuoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'');
    if (!isQuoted || text.back() != text.front()) return {};
    const std::string_view inside = text.substr(1, text.size() - 2);
    const bool isPlain = inside.find(text.front()) == std::string_view::npos && inside.find('\\') == inside.npos;
    return isPlain ? std::optional<std::string_view>(inside) : std::nullopt;
}

class _script {
 public:
    _script(std::string_view script, _surroundings& ofNode) : text(script), rest(script), surroundings(ofNode) {}

    _valueOutcome run();

 private:
    _unknown notKnown() const { return unknown(_reason::python, std::string(text)); }
    std::optional<std::string_view> nextLine();
    std::optional<_valueOutcome> statement(std::string_view line);
    std::optional<_valueOutcome> branch(std::string_view name);
    std::optional<_valueOutcome> assignment(std::string_view name, std::string_view value);
    bool isOwnNode(std::string_view value) const;
    std::optional<std::string_view> parameterOf(std::string_view value) const;
    _valueOutcome number(std::string_view value) const;

    std::string_view text;
    std::string_view rest;
    _surroundings& surroundings;
    std::set<std::string_view> names;                         ///< of the node itself
    std::map<std::string_view, std::string_view> parameters;  ///< whose texts are in variables
};

/// With its indentation; blank lines and comments are passed over.
std::optional<std::string_view> _script::nextLine() {
    while (!rest.empty()) {
        const auto end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const std::string_view inside = trimmed(line);
        if (!inside.empty() && inside.front() != '#') return line;
    }
    return {};
}

bool _script::isOwnNode(std::string_view value) const {
    return names.count(value) > 0 || std::find(ownNode.begin(), ownNode.end(), value) != ownNode.end();
}

/// The parameter of the node itself that an expression evaluates.
std::optional<std::string_view> _script::parameterOf(std::string_view value) const {
    constexpr std::string_view call{".evalParm("};
    const auto at = value.rfind(call);
    if (at == std::string_view::npos || !isOwnNode(value.substr(0, at)) || !takeSuffix(value, ")")) return {};
    const auto name = literalText(trimmed(value.substr(at + call.size())));
    return name && isName(*name) ? name : std::nullopt;
}

/// A number as written, or that of a channel.
_valueOutcome _script::number(std::string_view value) const {
    double literal = 0;
    if (readNumber(value, literal)) return _value(literal);
    for (const std::string_view call : numberOfChannel) {
        std::string_view argument = value;
        if (!takePrefix(argument, call) || !takeSuffix(argument, ")")) continue;
        const auto reference = literalText(trimmed(argument));
        if (!reference) return notKnown();
        const _numberOutcome channel = surroundings.channel(std::string(*reference));
        const bool isText = !channel && channel.why().reason == _reason::notANumber;  // which Python hands on as such
        return isText ? _valueOutcome(notKnown()) : asValue(channel);
    }
    return notKnown();
}

/// `if not NAME:`, whose only statement gives a number back. None: it is passed over.
std::optional<_valueOutcome> _script::branch(std::string_view name) {
    const auto parameter = parameters.find(name);
    const auto line = nextLine();
    if (parameter == parameters.end() || !line || !line->starts_with(' ')) return notKnown();
    std::string_view result = trimmed(*line);
    if (!takePrefix(result, "return ")) return notKnown();
    const std::string reference(parameter->second);
    const _textOutcome value = surroundings.parameterText(reference);
    if (!value) return value.why();
    double ofNumber = 0;
    if (readNumber(*value, ofNumber)) return notKnown();  // 0 is as good as an empty text only where it is a number
    return value->empty() ? std::optional<_valueOutcome>(number(trimmed(result))) : std::nullopt;
}

std::optional<_valueOutcome> _script::assignment(std::string_view name, std::string_view value) {
    const auto parameter = parameterOf(value);
    const bool isNode = isOwnNode(value);
    names.erase(name);
    parameters.erase(name);
    if (isNode) names.insert(name);
    if (parameter) parameters.emplace(name, *parameter);
    return isNode || parameter ? std::nullopt : std::optional<_valueOutcome>(notKnown());
}

/// None: the next one counts.
std::optional<_valueOutcome> _script::statement(std::string_view line) {
    if (blanks.find(line.front()) != std::string_view::npos) return notKnown();
    line = trimmed(line);
    for (const std::string_view begin : noEffect)
        if (line.starts_with(begin)) return {};
    if (std::string_view name = line; takePrefix(name, "if not ") && takeSuffix(name, ":"))
        return branch(trimmed(name));
    if (takePrefix(line, "return ")) return number(trimmed(line));
    const auto equals = line.find('=');
    const std::string_view name = trimmed(line.substr(0, std::min(equals, line.size())));
    if (equals != std::string_view::npos && isName(name)) return assignment(name, trimmed(line.substr(equals + 1)));
    return trimmed(rest).empty() ? number(line) : notKnown();
}

_valueOutcome _script::run() {
    _effort& effort = surroundings.effort();
    std::optional<_valueOutcome> result;
    ++effort.depth;
    while (const auto line = result ? std::nullopt : nextLine()) {
        vxP::spendWork(vxP::evaluationStepCost);
        const bool isTooMuch = ++effort.steps > mostSteps || effort.depth >= deepestEvaluation;
        effort.isCut |= isTooMuch;
        if (isTooMuch)
            result = unknown(effort.steps > mostSteps ? _reason::tooMuchWork : _reason::tooDeep, std::string(text));
        else
            result = statement(*line);
    }
    --effort.depth;
    return result ? *std::move(result) : notKnown();
}

}  // namespace

_valueOutcome evaluatePython(std::string_view script, _surroundings& surroundings) {
    return _script(script, surroundings).run();
}

}  // namespace vxV
