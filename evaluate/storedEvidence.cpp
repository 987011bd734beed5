// Looks for signs that a stored value is not of the saved state.
#include "evaluate/storedEvidence.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "evaluate/references.h"
#include "evaluate/syntax.h"

namespace vxV {

namespace {

/// Stored numbers may have gone through 32-bit floats.
constexpr double tolerance = 1e-5;
constexpr std::array<std::string_view, 2> switchWords{"off", "on"};
constexpr int longestChain = 20;

/// Stand for a folder and a name: no text of a scene holds them.
constexpr std::string_view folderMark = "\x01";
constexpr std::string_view nameMark = "\x02";

/// A stored number; of a switch 0 or 1.
bool storedNumber(std::string_view stored, double& number) {
    const auto word = std::find(switchWords.begin(), switchWords.end(), stored);
    if (word == switchWords.end()) return readNumber(stored, number);
    number = static_cast<double>(word - switchWords.begin());
    return true;
}

bool isSameText(std::string_view stored, std::string_view other) {
    double a = 0;
    double b = 0;
    return stored == other || (storedNumber(stored, a) && storedNumber(other, b) && a == b);
}

_options placedAtMarks(const vxN::_byteSource& source) {
    _options options;
    options.source = &source;
    options.sceneFile = std::string(folderMark).append("/").append(nameMark);
    return options;
}

/// A text with marks, each of which stands for any text.
bool fits(std::string_view marked, std::string_view text) {
    const std::size_t mark = std::min(marked.find_first_of("\x01\x02"), marked.size());
    if (!text.starts_with(marked.substr(0, mark))) return false;
    if (mark == marked.size()) return text.size() == mark;
    const std::string_view behind = marked.substr(mark + 1);
    for (text.remove_prefix(mark); !text.empty(); text.remove_prefix(1)) {
        if (fits(behind, text)) return true;
    }
    return fits(behind, text);
}

}  // namespace

bool isSameValue(std::string_view stored, const _value& computed) {
    if (const auto* const text = std::get_if<std::string>(&computed); text != nullptr && *text == stored) return true;
    const _numberOutcome number = numberOf(computed);
    double before = 0;
    return number && storedNumber(stored, before) &&
           std::fabs(*number - before) <= tolerance * std::max({1.0, std::fabs(*number), std::fabs(before)});
}

_storedEvidence::_storedEvidence(const vxN::_scene& ofScene, const vxN::_byteSource& source)
    : scene(ofScene), definitions(source), elsewhere(ofScene, placedAtMarks(source)) {
}

bool _storedEvidence::isUntouched(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored) {
    if (stored.text == channel.segments.front().expression) return true;
    if (channel.defaultText && !stored.text.empty() && stored.text == *channel.defaultText) return true;
    double number = 0;
    if (storedNumber(stored.text, number)) {
        if (number == 0) return true;
        if (channel.defaultNumber && isSameValue(stored.text, *channel.defaultNumber)) return true;
    }
    const auto parameters = node.parameters();
    for (const vxN::_parameter& parameter : parameters->all()) {
        for (std::size_t component = 0; component < parameter.values.size(); ++component) {
            if (parameter.values[component].channel != channel.name) continue;
            const _place place{&parameter, component};
            return isDefault(node, place, stored.text) || isUsual(node, place, stored.text);
        }
    }
    return false;
}

bool _storedEvidence::isDefault(const vxN::_node& node, const _place& place, std::string_view stored) {
    const _parameterDefinition* const defined = definitions.find(node, place.parameter->name);
    return defined != nullptr && place.component < defined->defaults.size() &&
           isSameText(stored, defined->defaults[place.component]);
}

void _storedEvidence::listTypes() {
    for (qint32 index = 0; index < scene.nodeCount(); ++index) {
        const std::string_view type = scene.node(index).type();
        if (!type.empty()) nodesOfType[type].push_back(index);
    }
}

bool _storedEvidence::isUsual(const vxN::_node& node, const _place& place, std::string_view stored) {
    if (nodesOfType.empty()) listTypes();
    int literal = 0;
    int same = 0;
    for (const qint32 index : nodesOfType[node.type()]) {
        if (index == node.index()) continue;
        const auto other = scene.node(index).parameter(place.parameter->name);
        if (other == nullptr || place.component >= other->values.size()) continue;
        const vxN::_value& value = other->values[place.component];
        if (value.isDriven()) continue;
        ++literal;
        same += isSameText(stored, value.text) ? 1 : 0;
    }
    return same > 0 && same * 2 >= literal;
}

bool _storedEvidence::isOfOtherPlace(const vxN::_node& node, std::string_view channel, std::string_view stored,
                                     double frame) {
    elsewhere.setFrame(frame);
    const _valueOutcome computed = elsewhere.channelValue(node, channel);
    const auto* const text = computed ? std::get_if<std::string>(&*computed) : nullptr;
    return text != nullptr && text->find_first_of("\x01\x02") != std::string::npos && fits(*text, stored);
}

std::string handedOn(const vxN::_node& node, const vxN::_channel& channel) {
    vxN::_node at = node;
    std::string name(channel.name);
    std::string source;
    for (int links = 0; links < longestChain; ++links) {
        const auto driver = at.channel(name);
        if (driver == nullptr) break;
        const auto tree = readExpression(driver->isExpression() ? driver->segments[0].expression : std::string_view());
        if (!tree) break;
        const _syntax& whole = **tree;
        if (whole.form == _form::variable) return "$" + whole.text;
        const bool isReference =
            whole.form == _form::call && (whole.text == "ch" || whole.text == "chs") &&
            (whole.parts[0].form == _form::plainText || whole.parts[0].form == _form::variableText);
        if (!isReference) break;
        const auto target = resolveReference(at, whole.parts[0].text);
        if (!target) break;
        at = target->node;
        name = std::string(target->name);
        source = at.path() + "/" + name;
    }
    return source;
}

}  // namespace vxV
