// What is rendered before what: the wires of driver networks, and the paths that some of their nodes hold instead.
#pragma once

#include <QtGlobal>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "evaluate/evaluator.h"

namespace vxP {

struct _nodesBefore {
    std::vector<qint32> nodes;
    bool isChosen = false;  ///< a value decides on them, of a switch or of a parameter that names a node
};

/// The order in which the drivers of a scene are rendered, as the scene is shown. In a driver network what is wired to
/// a node is rendered before it; a wire between nodes of geometry or of a stage carries data and orders nothing. A
/// switch has its chosen input (all of them where that cannot be told), a fetch the node that it names, a wedge the
/// driver that it names, a network within the network the nodes inside that nothing else in it waits for.
class _renderOrder {
 public:
    /// Both have to outlive it.
    _renderOrder(const vxN::_scene& inScene, vxV::_evaluator& withEvaluator)
        : scene(inScene), evaluator(withEvaluator), isDone(static_cast<std::size_t>(scene.nodeCount())) {}

    /// The scene is shown in another layer: what values decide on is asked anew.
    void forgetChoices();
    /// Nodes that name another one, which takes can change.
    std::vector<qint32> namingNodes() const;
    /// Notes what such a node names as the scene is shown: it may be rendered before, too.
    void noteNamed(qint32 node);
    /// A node behind all those that are rendered before it, whatever its switches choose and whatever was noted, and
    /// were not asked for yet; of a circle one is the first. Throws `_budgetExceeded`.
    std::vector<qint32> upTo(qint32 node);
    bool isHandedOut(qint32 node) const { return isDone[static_cast<std::size_t>(node)]; }
    /// The nearest nodes before one that are wanted, each once: the ways beyond them are not followed.
    _nodesBefore before(qint32 node, const std::function<bool(qint32)>& isWanted);
    /// The nearest wanted nodes that a wedge repeats: at the node that it names, or before it where it names none.
    std::vector<qint32> repeatedBy(const vxN::_node& wedge, const std::function<bool(qint32)>& isWanted);

 private:
    const std::vector<qint32>& sourcesOf(qint32 index);
    std::vector<qint32> possibleSources(qint32 index);
    std::optional<std::vector<vxN::_node>> chosenSource(const vxN::_node& node);
    std::vector<vxN::_node> readSources(const vxN::_node& node);
    vxN::_node named(const vxN::_node& node, std::string_view parameter);

    const vxN::_scene& scene;
    vxV::_evaluator& evaluator;
    std::map<qint32, std::vector<qint32>> sources;
    std::map<qint32, std::set<qint32>> noted;  ///< sources of nodes in other layers
    std::vector<qint32> choices;               ///< nodes among these whose sources a value decides on
    std::vector<bool> isDone;                  ///< by node: it was handed out
};

}  // namespace vxP
