#include "resolve/renderOrder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "evaluate/references.h"
#include "scan/scanBudget.h"
#include "scene/limits.h"

namespace vxP {

namespace {

using vxN::_node;

/// Networks whose wires say what is rendered first: those at the root ...
constexpr std::array<std::string_view, 2> driverRoots{"out", "tasks"};
/// ... and nodes that hold one.
constexpr std::array<std::string_view, 2> driverNetworks{"ropnet", "topnet"};

/// Nodes that hold a part of the network they are in.
constexpr std::array<std::string_view, 3> partsOfNetwork{"subnet", "ropnet", "topnet"};

/// Nodes that stand for another one, and the parameter that names it.
struct _stand {
    std::string_view type;
    std::string_view parameter;
};
constexpr std::string_view wedgeDriver{"driver"};
constexpr std::array stands{_stand{"fetch", "source"}, _stand{"ropfetch", "roppath"}, _stand{"wedge", wedgeDriver}};

constexpr std::string_view switchType{"switch"};
constexpr std::string_view chosenInput{"index"};

template <std::size_t Size>
bool isOneOf(const std::array<std::string_view, Size>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string_view typeName(const _node& node) {
    return vxN::splitNodeType(node.type()).name;
}

/// Null: it stands for itself.
const _stand* standOf(const _node& node) {
    const std::string_view type = typeName(node);
    const auto* const found =
        std::find_if(stands.begin(), stands.end(), [&](const _stand& stand) { return stand.type == type; });
    return found == stands.end() ? nullptr : found;
}

/// A value decides what is rendered before it.
bool isChoice(const _node& node) {
    return typeName(node) == switchType || standOf(node) != nullptr;
}

/// Assets of drivers hold more of the network that they are in.
bool isInDriverNetwork(const _node& node) {
    for (_node around = node.parent(); around; around = around.parent()) {
        if (isOneOf(driverNetworks, typeName(around))) return true;
        if (vxV::holdsOwnNetwork(around)) return false;
        const _node outer = around.parent();
        if (outer && !outer.parent()) return isOneOf(driverRoots, around.name());
    }
    return false;
}

qint64 bytesIn(std::size_t sources) {
    return bytesAroundPosition + static_cast<qint64>(sources * sizeof(qint32));
}

/// Nodes in a network that no other one in it waits for.
std::vector<_node> endsOf(const _node& network) {
    std::vector<_node> ends = network.children();
    std::set<qint32> isBefore;
    for (const _node& child : ends)
        for (const _node& input : child.inputNodes()) isBefore.insert(input.index());
    const auto isNoEnd = [&](const _node& child) { return isBefore.count(child.index()) > 0; };
    ends.erase(std::remove_if(ends.begin(), ends.end(), isNoEnd), ends.end());
    return ends;
}

}  // namespace

/// False where the parameter names no node. What a scene does not hold of a driver is an asset's own: the asset
/// renders.
_node _renderOrder::named(const _node& node, std::string_view parameter) {
    const auto text = evaluator.text(node, parameter);
    if (!text) return {};
    std::string_view path = *text;
    while (!path.empty()) {
        if (const _node found = node.find(path)) {
            const bool isWhole = path.size() == text->size();
            return isWhole || found.matchesDefinition() ? found : _node();
        }
        const std::size_t slash = path.rfind('/');
        path = path.substr(0, slash == std::string_view::npos ? 0 : slash);
    }
    return {};
}

/// The input that a switch lets through; none: it cannot be told.
std::optional<std::vector<_node>> _renderOrder::chosenSource(const _node& node) {
    const auto chosen = evaluator.number(node, chosenInput);
    if (!chosen || std::abs(*chosen) >= vxN::mostInputs) return {};
    const _node input = node.inputNode(static_cast<quint32>(std::max(*chosen, 0.0)));
    return input ? std::vector<_node>{input} : std::vector<_node>();
}

std::vector<_node> _renderOrder::readSources(const _node& node) {
    if (!node || !isInDriverNetwork(node)) return {};
    const std::string_view type = typeName(node);
    if (type == switchType)
        if (auto chosen = chosenSource(node)) return *std::move(chosen);
    std::vector<_node> nodes = node.inputNodes();
    if (const _stand* const stand = standOf(node))
        if (const _node other = named(node, stand->parameter)) nodes.push_back(other);
    if (!isOneOf(partsOfNetwork, type)) return nodes;
    const auto ends = endsOf(node);
    return ends.empty() ? nodes : ends;
}

const std::vector<qint32>& _renderOrder::sourcesOf(qint32 index) {
    const auto [place, isNew] = sources.try_emplace(index);
    if (!isNew) return place->second;
    spendWork(wireCost);
    const auto nodes = readSources(scene.node(index));
    keepMemory(bytesIn(nodes.size()));
    for (const _node& node : nodes) place->second.push_back(node.index());
    if (isChoice(scene.node(index))) choices.push_back(index);
    return place->second;
}

void _renderOrder::forgetChoices() {
    for (const qint32 node : choices) {
        const auto place = sources.find(node);
        keepMemory(-bytesIn(place->second.size()));
        sources.erase(place);
    }
    choices.clear();
}

std::vector<qint32> _renderOrder::namingNodes() const {
    std::vector<qint32> found;
    for (qint32 index = 0; index < scene.nodeCount(); ++index)
        if (standOf(scene.node(index)) != nullptr) found.push_back(index);
    return found;
}

void _renderOrder::noteNamed(qint32 node) {
    for (const qint32 source : sourcesOf(node))
        if (noted[node].insert(source).second) keepMemory(bytesIn(1));
}

std::vector<qint32> _renderOrder::possibleSources(qint32 index) {
    const _node node = scene.node(index);
    std::vector<qint32> all;
    if (typeName(node) != switchType || !isInDriverNetwork(node))
        all = sourcesOf(index);
    else
        for (const _node& input : node.inputNodes()) all.push_back(input.index());
    if (const auto others = noted.find(index); others != noted.end())
        all.insert(all.end(), others->second.begin(), others->second.end());
    return all;
}

std::vector<qint32> _renderOrder::upTo(qint32 node) {
    struct _step {
        qint32 node;
        std::vector<qint32> sources;
        std::size_t next = 0;  ///< of its sources
    };
    std::vector<qint32> order;
    std::vector<_step> way;
    const auto enter = [&](qint32 index) {
        if (isDone[static_cast<std::size_t>(index)]) return;
        isDone[static_cast<std::size_t>(index)] = true;
        way.push_back({index, possibleSources(index)});
    };
    enter(node);
    while (!way.empty()) {
        _step& last = way.back();
        if (last.next < last.sources.size()) {
            enter(last.sources[last.next++]);
        } else {
            order.push_back(way.back().node);
            way.pop_back();
        }
    }
    return order;
}

_nodesBefore _renderOrder::before(qint32 node, const std::function<bool(qint32)>& isWanted) {
    _nodesBefore found;
    std::set<qint32> known{node};
    std::vector<qint32> ahead;  // the next one is the last
    const auto follow = [&](qint32 index) {
        const std::vector<qint32>& first = sourcesOf(index);
        found.isChosen |= isChoice(scene.node(index));
        for (auto source = first.rbegin(); source != first.rend(); ++source) ahead.push_back(*source);
    };
    follow(node);
    while (!ahead.empty()) {
        const qint32 next = ahead.back();
        ahead.pop_back();
        spendWork(wireCost);
        if (!known.insert(next).second) continue;
        if (isWanted(next))
            found.nodes.push_back(next);
        else
            follow(next);
    }
    return found;
}

std::vector<qint32> _renderOrder::repeatedBy(const _node& wedge, const std::function<bool(qint32)>& isWanted) {
    const auto path = evaluator.text(wedge, wedgeDriver);
    if (path && path->empty()) return before(wedge.index(), isWanted).nodes;
    const _node driver = named(wedge, wedgeDriver);
    if (!driver) return {};
    return isWanted(driver.index()) ? std::vector<qint32>{driver.index()} : before(driver.index(), isWanted).nodes;
}

}  // namespace vxP
