// Answers what expressions ask.
#include "evaluate/nodeSurroundings.h"

#include <algorithm>

#include "evaluate/references.h"

namespace vxV {

/// A text that is a number counts as one: $PI * 2.
_valueOutcome _nodeSurroundings::variable(std::string_view name) {
    const _valueOutcome value = evaluation.variable(node, name, frame);
    if (!value || std::holds_alternative<double>(*value)) return value;
    double number = 0;
    return readNumber(std::get<std::string>(*value), number) ? _valueOutcome(_value(number)) : value;
}

_textOutcome _nodeSurroundings::expanded(const std::string& text) {
    return evaluation.expand(node, text, frame);
}

_numberOutcome _nodeSurroundings::channel(const std::string& reference) {
    return channelAt(reference, frame);
}

_numberOutcome _nodeSurroundings::channelAt(const std::string& reference, double atFrame) {
    const _outcome<_reference> found = resolveReference(node, reference);
    return found ? evaluation.number(found->node, found->name, atFrame) : _numberOutcome(found.why());
}

_textOutcome _nodeSurroundings::parameterText(const std::string& reference) {
    const _outcome<_reference> found = resolveReference(node, reference);
    return found ? evaluation.text(found->node, found->name, frame) : _textOutcome(found.why());
}

/// What a channel drives has no text of its own.
_textOutcome _nodeSurroundings::rawParameterText(const std::string& reference) {
    const _outcome<_reference> found = resolveReference(node, reference);
    if (!found) return found.why();
    const auto stored = found->node.component(found->name);
    if (stored == nullptr) return unknown(_reason::missingParameter, reference);
    if (stored->isDriven()) return unknown(_reason::uncertain, reference);
    if (stored->isRandom) return unknown(_reason::random, reference);
    return std::string(stored->text);
}

_textOutcome _nodeSurroundings::nodeOfParameter(const std::string& reference) {
    const _outcome<_reference> found = resolveReference(node, reference);
    if (!found) return found.why();
    const _textOutcome path = evaluation.text(found->node, found->name, frame);
    if (!path || path->empty()) return path;
    const _outcome<vxN::_node> named = nodeAt(found->node, *path);
    if (named) return named->path();
    return named.why().reason == _reason::missingNode ? _textOutcome(std::string()) : _textOutcome(named.why());
}

_outcome<bool> _nodeSurroundings::hasParameter(const std::string& reference) {
    const _outcome<_reference> found = resolveReference(node, reference);
    if (found) return found->node.channel(found->name) != nullptr || found->node.component(found->name) != nullptr;
    if (found.why().reason == _reason::missingNode) return false;
    return found.why();
}

_textOutcome _nodeSurroundings::nodePath(const std::string& path) {
    const _outcome<vxN::_node> found = nodeAt(node, path);
    return found ? _textOutcome(found->path()) : _textOutcome(found.why());
}

_textOutcome _nodeSurroundings::nodePathNearby(const std::string& path) {
    const vxN::_node beside = node.parent().child(path);
    return beside ? _textOutcome(beside.path()) : nodePath(path);
}

/// The contents of a locked asset have no type in the scene.
_textOutcome _nodeSurroundings::nodeType(const std::string& path) {
    const _outcome<vxN::_node> found = nodeAt(node, path);
    if (!found) return found.why();
    const std::string_view type = found->type();
    if (type.empty()) return unknown(_reason::lockedContents, path);
    if (type.find("::") != std::string_view::npos) return unknown(_reason::uncertain, std::string(type));
    return std::string(type);
}

_outcome<bool> _nodeSurroundings::hasNode(const std::string& path) {
    const _outcome<vxN::_node> found = nodeAt(node, path);
    if (found) return true;
    if (found.why().reason == _reason::missingNode) return false;
    return found.why();
}

_textOutcome _nodeSurroundings::inputPath(const std::string& path, int input) {
    const _outcome<vxN::_node> found = nodeAt(node, path);
    if (!found) return found.why();
    const vxN::_node wired = found->inputNode(static_cast<quint32>(input));
    return wired ? wired.path() : std::string();
}

/// How many inputs are wired; with gaps between them it is not certain what counts.
_outcome<int> _nodeSurroundings::inputCount(const std::string& path) {
    const _outcome<vxN::_node> found = nodeAt(node, path);
    if (!found) return found.why();
    const auto definition = found->definition();
    int count = 0;
    for (const vxN::_input& input : definition->inputs) {
        if (!input.isWired()) continue;
        if (input.index != static_cast<quint32>(count)) return unknown(_reason::uncertain, path);
        ++count;
    }
    return count;
}

_textOutcome _nodeSurroundings::creatorPath(const std::string& path) {
    const _outcome<vxN::_node> found = nodeAt(node, path);
    return found ? creatorOf(*found) : _textOutcome(found.why());
}

}  // namespace vxV
