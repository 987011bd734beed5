// The entry ".def" of a node.
#include <algorithm>
#include <array>

#include "scene/limits.h"
#include "scene/nameIndex.h"
#include "scene/node.h"
#include "scene/textTokens.h"

namespace vxN {

namespace {

/// In the order of `_flag`.
constexpr std::array<std::string_view, 21> flagNames{
    "lock",       "model",     "template",     "footprint",  "xray",     "bypass",       "display",
    "render",     "highlight", "unload",       "savedata",   "compress", "colordefault", "exposed",
    "selectable", "lowdetail", "mediumdetail", "highdetail", "material", "debug",        "displaycomment",
};
static_assert(flagNames[static_cast<std::size_t>(_flag::displaycomment)] == "displaycomment");

/// The flags that takes name, by their letters there.
struct _takeFlag {
    std::string_view letter;
    _flag flag;
};
constexpr std::array takeFlags{_takeFlag{"d", _flag::display}, _takeFlag{"r", _flag::render},
                               _takeFlag{"b", _flag::bypass}};

constexpr quint32 bitOf(std::size_t flag) {
    return quint32{1} << flag;
}

void setBit(_nodeDefinition& definition, std::size_t flag, bool isSet) {
    const quint32 bit = bitOf(flag);
    definition.knownFlags |= bit;
    definition.flags = isSet ? definition.flags | bit : definition.flags & ~bit;
}

/// Reads what follows "flags =": a name and "on" or "off" for each.
void readFlags(_textTokens& tokens, _nodeDefinition& definition) {
    for (;;) {
        _textTokens behind = tokens;
        const auto name = behind.next();
        const auto state = behind.next();
        if (!name || !state || !(state->is("on") || state->is("off"))) return;
        tokens = behind;
        const auto* const row = std::find(flagNames.begin(), flagNames.end(), name->text);
        if (row == flagNames.end()) continue;
        setBit(definition, static_cast<std::size_t>(row - flagNames.begin()), state->is("on"));
    }
}

/// The number in "(0)"; -1: there is none.
qint32 subnetInputIn(std::string_view source) {
    if (source.size() < 3 || source.front() != '(' || source.back() != ')') return -1;
    const auto number = countIn(source.substr(1, source.size() - 2));
    return number && *number < mostInputs ? static_cast<qint32>(*number) : -1;
}

/// Reads what follows "inputs {": index, source, output, flag for each.
void readInputs(_textTokens& tokens, _nodeDefinition& definition) {
    while (const auto index = tokens.next()) {
        if (index->is("}")) return;
        const auto source = tokens.next();
        const auto output = tokens.next();
        if (!tokens.next() || definition.inputs.size() >= mostInputs) return;
        definition.inputs.push_back(
            makeInput(countIn(index->text).value_or(0), source->text, countIn(output->text).value_or(0)));
    }
}

std::string nextText(_textTokens& tokens) {
    const auto token = tokens.next();
    return std::string(token ? token->text : std::string_view());
}

bool beginsWithDigit(std::string_view text) {
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

}  // namespace

_input makeInput(quint32 index, std::string_view source, quint32 output) {
    const qint32 subnetInput = subnetInputIn(source);
    return {index, std::string(subnetInput < 0 ? source : std::string_view()), subnetInput, output};
}

std::optional<bool> _nodeDefinition::isOn(_flag flag) const {
    const quint32 bit = bitOf(static_cast<std::size_t>(flag));
    if ((knownFlags & bit) == 0) return std::nullopt;
    return (flags & bit) != 0;
}

void _nodeDefinition::setFlag(std::string_view letter, bool isSet) {
    for (const _takeFlag& row : takeFlags)
        if (row.letter == letter) setBit(*this, static_cast<std::size_t>(row.flag), isSet);
}

qint64 _nodeDefinition::bytes() const {
    return qint64{sizeof *this} + bytesOfItems(inputs);
}

_nodeDefinition parseNodeDefinition(std::string_view text) {
    _nodeDefinition definition;
    _textTokens tokens(text);
    while (const auto token = tokens.next()) {
        if (token->is("end")) break;
        if (token->is("flags") && tokens.take("=")) readFlags(tokens, definition);
        if (token->is("inputs") && tokens.take("{")) readInputs(tokens, definition);
        if (token->is("creator")) definition.creator = nextText(tokens);
        if (token->is("exprlanguage")) definition.expressionLanguage = nextText(tokens);
        if (token->is("{")) tokens.skipBlock();
    }
    return definition;
}

_nodeType splitNodeType(std::string_view type) {
    constexpr std::string_view mark = "::";
    _nodeType parts{{}, type, {}};
    std::size_t at = type.rfind(mark);
    if (at != std::string_view::npos && beginsWithDigit(type.substr(at + mark.size()))) {
        parts.version = type.substr(at + mark.size());
        parts.name = type.substr(0, at);
        at = parts.name.rfind(mark);
    }
    if (at != std::string_view::npos) {
        parts.space = parts.name.substr(0, at);
        parts.name = parts.name.substr(at + mark.size());
    }
    return parts;
}

}  // namespace vxN
