// What a scene keeps in memory: the tree of its nodes, where in the file their entries lie, and what concerns it as a
// whole.
#pragma once

#include <QtGlobal>
#include <array>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "scene/nodeCache.h"
#include "scene/scene.h"

namespace vxN {

/// The entries of a node that are read when somebody asks.
enum class _nodeEntry : quint8 { definition, parameters, channels, multiparm };
constexpr std::size_t nodeEntries = 4;

struct _nodeRecord {
    std::string name;
    qint32 parent = -1;
    quint32 type = 0;  ///< position in the list of types; 0: unknown
    bool matchesDefinition = false;
    bool isSaved = false;
    qint32 rank = 0;         ///< among its siblings
    quint32 firstChild = 0;  ///< position in the list of children
    quint32 childCount = 0;
    std::array<_body, nodeEntries> entries{};
};

struct _sceneStore {
    explicit _sceneStore(const _byteSource& bytes) : source(bytes) {}

    const _nodeRecord& record(qint32 index) const { return nodes[static_cast<std::size_t>(index)]; }
    _nodeRecord& record(qint32 index) { return nodes[static_cast<std::size_t>(index)]; }
    /// -1: there is none.
    qint32 childOf(qint32 parent, std::string_view name) const;
    /// What the node's entry holds; empty where it has none. Throws `_budgetExceeded`.
    std::string textOf(qint32 index, _nodeEntry entry) const;
    std::vector<_takeOverride> overridesOf(const _node& node) const;
    bool hasLayer() const { return layer->take >= 0 || !layer->fixed.empty(); }
    /// The number that stands in for a component; null: none does.
    const _fixedNumber* fixedFor(const _node& node, const _parameters& all, const _value* component) const;

    const _byteSource& source;
    _archiveKind archiveKind = _archiveKind::none;
    mutable _archiveEnd archiveEnd = _archiveEnd::cut;  ///< reading a node may find out more

    std::deque<_nodeRecord> nodes;  ///< in the order of the scene, the root first; they stay where they are
    std::map<std::pair<qint32, std::string_view>, qint32> byName;  ///< by parent and name
    std::vector<qint32> children;                                  ///< of all nodes, in the order of the scene
    std::map<std::pair<qint32, std::string>, _body> dots;          ///< by parent and name
    std::deque<std::string> types;

    _timeline timeline;
    std::vector<_sceneVariable> variables;
    std::vector<quint32> variablesByName;
    std::vector<_contextOption> contextOptions;
    std::unique_ptr<_takes> takes;
    std::shared_ptr<const _layer> layer = std::make_shared<const _layer>();  ///< never null
    mutable bool isFixedRead = false;                                        ///< a number of the layer was handed out

    mutable _nodeCache<_nodeDefinition> definitions;
    mutable _nodeCache<_parameters> parameters;
    mutable _nodeCache<_channels> channels;
};

}  // namespace vxN
