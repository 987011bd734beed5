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
constexpr std::string_view marks = "\x01\x02";

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

/// A text with marks, each of which stands for any text: what is between them has to follow in order.
bool fits(std::string_view marked, std::string_view text) {
    for (bool isFirst = true;; isFirst = false) {
        const std::size_t mark = std::min(marked.find_first_of(marks), marked.size());
        const std::string_view part = marked.substr(0, mark);
        const bool isLast = mark == marked.size();
        if (isLast && !isFirst) return text.ends_with(part);
        const std::size_t place = isFirst ? (text.starts_with(part) ? 0 : std::string_view::npos) : text.find(part);
        if (place == std::string_view::npos) return false;
        text.remove_prefix(place + part.size());
        if (isLast) return text.empty();
        marked.remove_prefix(mark + 1);
    }
}

/// The one expression of a channel; null: it has none, or one that cannot be read.
_tree expressionOf(const vxN::_node& node, std::string_view channel) {
    const auto driver = node.channel(channel);
    if (driver == nullptr || !driver->isExpression()) return {};
    const auto tree = readExpression(driver->segments[0].expression);
    return tree ? *tree : _tree();
}

bool isPlainReference(const _syntax& expression) {
    if (expression.form != _form::call || (expression.text != "ch" && expression.text != "chs")) return false;
    const _form path = expression.parts[0].form;
    return path == _form::plainText || path == _form::variableText;
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
    const bool isNumber = storedNumber(stored.text, number);
    if (isNumber && (number == 0 || (channel.defaultNumber && isSameValue(stored.text, *channel.defaultNumber))))
        return true;
    const auto parameters = node.parameters();
    const _place place = placeOf(*parameters, channel.name);
    return place.parameter != nullptr && (isDefault(node, place, stored.text) || isUsual(node, place, stored.text));
}

_storedEvidence::_place _storedEvidence::placeOf(const vxN::_parameters& parameters, std::string_view channel) {
    for (const vxN::_parameter& parameter : parameters.all()) {
        const auto driven = std::find_if(parameter.values.begin(), parameter.values.end(),
                                         [&](const vxN::_value& value) { return value.channel == channel; });
        if (driven != parameter.values.end()) {
            return {&parameter, static_cast<std::size_t>(driven - parameter.values.begin())};
        }
    }
    return {};
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
    return text != nullptr && text->find_first_of(marks) != std::string::npos && fits(*text, stored);
}

std::string handedOn(const vxN::_node& node, const vxN::_channel& channel) {
    vxN::_node at = node;
    std::string name(channel.name);
    std::string source;
    for (int links = 0; links < longestChain; ++links) {
        const auto tree = expressionOf(at, name);
        if (tree == nullptr) break;
        if (tree->form == _form::variable) return "$" + tree->text;
        const auto target = isPlainReference(*tree) ? resolveReference(at, tree->parts[0].text)
                                                    : _outcome<_reference>(unknown(_reason::uncertain));
        if (!target) break;
        at = target->node;
        name = std::string(target->name);
        source = at.path() + "/" + name;
    }
    return source;
}

}  // namespace vxV
