#include "scene/node.h"

#include <algorithm>
#include <utility>

#include "scan/scanBudget.h"
#include "scene/entryTexts.h"
#include "scene/limits.h"
#include "scene/sceneStore.h"

namespace vxN {

namespace {

/// A part of what a shared pointer keeps alive; null stays null.
template <typename Part, typename Whole>
std::shared_ptr<const Part> partOf(const std::shared_ptr<const Whole>& whole, const Part* part) {
    return part == nullptr ? nullptr : std::shared_ptr<const Part>(whole, part);
}

/// The layer keeps the text alive, or the parameters do.
_value valueOf(const _fixedNumber& fixed, const _value& own) {
    if (fixed.isRandom) return {own.text, {}, own.isQuoted, true, true};
    return {fixed.text, {}, false, true};
}

/// A parameter with numbers of a layer among its values, and what keeps its texts alive.
struct _layeredParameter {
    std::shared_ptr<const _parameters> own;
    std::shared_ptr<const _layer> layer;
    std::vector<_value> values;
    _parameter parameter;
};

/// The same of one value.
struct _layeredValue {
    std::shared_ptr<const _parameters> own;
    std::shared_ptr<const _layer> layer;
    _value value;
};

std::string_view takeName(std::string_view& path) {
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::string_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    return name;
}

}  // namespace

qint32 _sceneStore::childOf(qint32 parent, std::string_view name) const {
    const auto found = byName.find({parent, name});
    return found == byName.end() ? -1 : found->second;
}

std::string _sceneStore::textOf(qint32 index, _nodeEntry entry) const {
    const _body& body = record(index).entries[static_cast<std::size_t>(entry)];
    if (body.size == 0) return {};
    std::string text = readBody(source, body, largestBody);
    if (static_cast<qint64>(text.size()) < std::min(body.size, largestBody)) archiveEnd = _archiveEnd::unreadable;
    return text;
}

/// Of the take that is shown.
std::vector<_takeOverride> _sceneStore::overridesOf(const _node& node) const {
    return layer->take < 0 ? std::vector<_takeOverride>() : takes->overridesOf(layer->take, node.path());
}

const _fixedNumber* _sceneStore::fixedFor(const _node& node, const _parameters& all, const _value* component) const {
    for (const _fixedNumber& fixed : layer->fixed) {
        if (fixed.node != node.index() || all.component(fixed.channel) != component) continue;
        isFixedRead = true;
        return &fixed;
    }
    return nullptr;
}

std::string_view _node::name() const {
    return scene == nullptr ? std::string_view() : scene->record(position).name;
}

std::string _node::path() const {
    if (scene == nullptr) return {};
    std::vector<std::string_view> names;
    for (qint32 at = position; at > 0; at = scene->record(at).parent) names.push_back(scene->record(at).name);
    if (names.empty()) return "/";
    std::string path;
    for (auto name = names.rbegin(); name != names.rend(); ++name) path.append("/").append(*name);
    return path;
}

std::string_view _node::type() const {
    return scene == nullptr ? std::string_view() : scene->types[scene->record(position).type];
}

bool _node::matchesDefinition() const {
    return scene != nullptr && scene->record(position).matchesDefinition;
}

bool _node::isSaved() const {
    return scene != nullptr && scene->record(position).isSaved;
}

qint64 _node::parametersStart() const {
    const auto entry = static_cast<std::size_t>(_nodeEntry::parameters);
    const qint64 text = scene == nullptr ? 0 : scene->record(position).entries[entry].offset;
    const auto nameSize = static_cast<qint64>(path().size() - 1 + std::string_view(".parm").size() + 1);
    return text == 0 ? 0 : text - nameSize - headerBytes(scene->archiveKind);
}

_node _node::parent() const {
    return at(scene == nullptr ? -1 : scene->record(position).parent);
}

_node _node::at(qint32 index) const {
    return index < 0 ? _node() : _node(*scene, index);
}

std::vector<_node> _node::children() const {
    std::vector<_node> nodes;
    if (scene == nullptr) return nodes;
    const _nodeRecord& record = scene->record(position);
    nodes.reserve(record.childCount);
    for (quint32 i = 0; i < record.childCount; ++i) nodes.push_back(at(scene->children[record.firstChild + i]));
    return nodes;
}

_node _node::child(std::string_view name) const {
    return at(scene == nullptr ? -1 : scene->childOf(position, name));
}

_node _node::find(std::string_view path) const {
    _node node = path.starts_with('/') && scene != nullptr ? at(0) : *this;
    while (node && !path.empty()) {
        const std::string_view name = takeName(path);
        if (name.empty() || name == ".") continue;
        node = name == ".." ? node.parent() : node.child(name);
    }
    return node;
}

std::shared_ptr<const _nodeDefinition> _node::definition() const {
    if (scene == nullptr) return std::make_shared<const _nodeDefinition>();
    return scene->definitions.get(position, [this] {
        _nodeDefinition definition = parseNodeDefinition(scene->textOf(position, _nodeEntry::definition));
        for (const _takeOverride& override : scene->overridesOf(*this))
            if (override.isFlag()) definition.setFlag(override.name.substr(flagMark.size()), override.value == "on");
        return std::make_shared<const _nodeDefinition>(std::move(definition));
    });
}

std::shared_ptr<const _parameters> _node::parameters() const {
    if (scene == nullptr) return std::make_shared<const _parameters>(std::string());
    return scene->parameters.get(position, [this] {
        std::vector<std::string_view> blocks;
        for (const _takeOverride& override : scene->overridesOf(*this))
            if (!override.isFlag()) blocks.push_back(override.value);
        return std::make_shared<const _parameters>(scene->textOf(position, _nodeEntry::parameters), blocks);
    });
}

std::shared_ptr<const _channels> _node::channels() const {
    if (scene == nullptr) return std::make_shared<const _channels>(std::string());
    return scene->channels.get(
        position, [this] { return std::make_shared<const _channels>(scene->textOf(position, _nodeEntry::channels)); });
}

std::shared_ptr<const _parameter> _node::parameter(std::string_view name) const {
    const auto all = parameters();
    const _parameter* const own = all->find(name);
    if (own == nullptr || scene->layer->fixed.empty()) return partOf(all, own);
    const auto layered = std::make_shared<_layeredParameter>();
    *layered = {all, scene->layer, {own->values.begin(), own->values.end()}, *own};
    for (std::size_t i = 0; i < layered->values.size(); ++i)
        if (const auto* const fixed = scene->fixedFor(*this, *all, &own->values[i]))
            layered->values[i] = valueOf(*fixed, own->values[i]);
    layered->parameter.values = layered->values;
    return std::shared_ptr<const _parameter>(layered, &layered->parameter);
}

std::shared_ptr<const _value> _node::component(std::string_view channel) const {
    const auto all = parameters();
    const _value* const own = all->component(channel);
    const _fixedNumber* const fixed = own == nullptr ? nullptr : scene->fixedFor(*this, *all, own);
    if (fixed == nullptr) return partOf(all, own);
    const auto layered = std::make_shared<const _layeredValue>(_layeredValue{all, scene->layer, valueOf(*fixed, *own)});
    return std::shared_ptr<const _value>(layered, &layered->value);
}

std::shared_ptr<const _channel> _node::channel(std::string_view name) const {
    if (scene != nullptr && scene->hasLayer())
        if (const auto value = component(name); value != nullptr && value->isOverride && !value->isDriven())
            return nullptr;
    const auto all = channels();
    return partOf(all, all->find(name));
}

std::vector<_multiparmLink> _node::multiparmLinks() const {
    if (scene == nullptr) return {};
    return parseMultiparmLinks(scene->textOf(position, _nodeEntry::multiparm));
}

_input _node::storedInput(quint32 index) const {
    const auto own = definition();
    const std::vector<_input>& inputs = own->inputs;
    if (index < inputs.size() && inputs[index].index == index) return inputs[index];
    vxP::spendWork(vxP::nodeInputCost, static_cast<qint64>(inputs.size()));
    const auto input =
        std::find_if(inputs.begin(), inputs.end(), [&](const _input& one) { return one.index == index; });
    return input == inputs.end() ? _input() : *input;
}

/// @param dot  beside this node, in brackets
_input _node::inputOfDot(std::string_view dot) const {
    if (dot.size() < 2) return {};
    const auto found = scene->dots.find({parent().index(), std::string(dot.substr(1, dot.size() - 2))});
    return found == scene->dots.end() ? _input() : parseDotInput(readBody(scene->source, found->second, largestBody));
}

_node _node::inputNode(quint32 index) const {
    _node node = *this;
    _input wire = storedInput(index);
    for (int steps = 0; node && wire.isWired() && steps < longestWire; ++steps) {
        if (wire.subnetInput >= 0) {
            node = node.parent();
            wire = node.storedInput(static_cast<quint32>(wire.subnetInput));
        } else if (wire.source.starts_with('(')) {
            wire = node.inputOfDot(wire.source);
        } else {
            return node.parent().child(wire.source);
        }
    }
    return {};
}

std::vector<_node> _node::inputNodes() const {
    std::vector<_node> nodes;
    const auto own = definition();
    for (const _input& input : own->inputs) {
        vxP::spendWork(vxP::wireCost);
        if (const _node wired = input.isWired() ? inputNode(input.index) : _node()) nodes.push_back(wired);
    }
    return nodes;
}

}  // namespace vxN
