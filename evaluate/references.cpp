// Finds nodes, and tells why there is none.
#include "evaluate/references.h"

#include <algorithm>
#include <array>

namespace vxV {

namespace {

using vxN::_node;

/// Nodes that hold a network of another kind than the one they are in, geometry objects among them.
constexpr std::array<std::string_view, 15> networkTypes{"dopnet", "geo",     "sopnet", "objnet",  "ropnet",
                                                        "lopnet", "chopnet", "copnet", "cop2net", "matnet",
                                                        "vopnet", "shopnet", "topnet", "img",     "popnet"};

/// The last node on the way that there is, and what of the way is behind it.
_node lastOnTheWay(const _node& from, std::string_view path) {
    _node last = path.starts_with('/') ? from.find("/") : from;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string_view step = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (step.empty()) continue;
        const _node next = last.find(step);
        if (!next) break;
        last = next;
    }
    return last;
}

}  // namespace

bool holdsOwnNetwork(const _node& node) {
    const std::string_view name = vxN::splitNodeType(node.type()).name;
    return std::find(networkTypes.begin(), networkTypes.end(), name) != networkTypes.end();
}

_outcome<_node> nodeAt(const _node& from, std::string_view path) {
    std::string_view way = path;
    while (way.size() > 1 && way.ends_with('/')) way.remove_suffix(1);
    const _node found = way.empty() ? _node() : from.find(way);
    if (found) return found;
    const _node last = lastOnTheWay(from, way);
    const bool isLocked = last && !way.empty() && (last.matchesDefinition() || (last.type().empty() && last.parent()));
    return unknown(isLocked ? _reason::lockedContents : _reason::missingNode, std::string(path));
}

_outcome<_reference> resolveReference(const _node& from, std::string_view text) {
    const std::size_t slash = text.rfind('/');
    if (slash == std::string_view::npos) return _reference{from, text};
    const _outcome<_node> node = nodeAt(from, text.substr(0, std::max<std::size_t>(slash, 1)));
    if (!node) return node.why();
    return _reference{*node, text.substr(slash + 1)};
}

_textOutcome creatorOf(const _node& node) {
    for (_node around = node.parent(); around && around.parent(); around = around.parent()) {
        if (holdsOwnNetwork(around)) return around.path();
        if (!around.parent().parent()) return around.path();
        // What else may lie around: networks within a network, whose kind is the same.
        if (around.type() != "subnet") break;
    }
    return unknown(_reason::uncertain, node.path());
}

}  // namespace vxV
