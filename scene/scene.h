// A scene with its nodes, as it was saved. Nothing is computed: expressions are texts here.
//
//     vxN::_scene scene(source);                                   // the bytes are kept open, not in memory
//     const vxN::_node driver = scene.find("/out/mantra1");
//     if (const auto range = driver.parameter("f"))                // null where there is none
//         for (const vxN::_value& value : range->values) ...       // value.text, value.channel
//     if (const auto first = driver.channel("f1"); first && first->isExpression())
//         ... first->segments[0].expression                        // "$FSTART"
//     for (const vxN::_node child : scene.root().children()) ...
//
// Texts are the bytes of the scene, UTF-8 in most. A scene and its nodes are for one thread. Whatever reads the scene
// spends what scan/scanBudget.h allows and throws `_budgetExceeded`: call `vxP::beginBudget` before each scene.
// What is read of one node has limits of its own besides (scene/limits.h).
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "scene/archive.h"
#include "scene/layer.h"
#include "scene/node.h"
#include "scene/takes.h"

namespace vxN {

/// From and to, both included.
struct _range {
    double first = 0;
    double last = 0;
};

/// The entry ".start". What it does not say is unknown.
struct _timeline {
    std::optional<double> fps;          ///< greater than 0
    std::optional<double> currentTime;  ///< seconds; 0 is frame 1
    std::optional<_range> globalRange;  ///< seconds, from the start of the first frame to the end of the last
    std::optional<_range> frameRange;   ///< played back, frames
    std::optional<double> frameStep;    ///< of it
};

struct _sceneVariable {
    std::string name;
    std::string value;
    bool isGlobal = true;
};

/// What nodes can ask for while they cook, with the value that it has unless something sets another one.
struct _contextOption {
    std::string name;
    std::string value;
    bool isNumber = false;  ///< else a text
};

class _scene {
 public:
    /// Lists the entries and reads what makes the tree of nodes.
    /// @param source  has to outlive the scene: nodes are read from it
    explicit _scene(const _byteSource& source);
    _scene(_scene&&) noexcept;
    _scene& operator=(_scene&&) noexcept;
    ~_scene();

    _archiveKind archiveKind() const;  ///< none: this is no scene, and there are no nodes but the root
    /// Unreadable also when the entries of a node could not be read later.
    _archiveEnd archiveEnd() const;

    _node root() const;
    /// @param path  absolute, or from the root; false: no such node
    _node find(std::string_view path) const;
    /// All nodes in the order of the scene, the root first.
    qint32 nodeCount() const;
    _node node(qint32 index) const;

    const _timeline& timeline() const;
    /// In the order of the scene: "HIP", "HIPFILE", "ACTIVETAKE", "_HIP_SAVEVERSION" ...; as they were saved.
    std::span<const _sceneVariable> variables() const;
    /// The last one of this name; none: it is not saved with the scene.
    std::optional<std::string_view> variable(std::string_view name) const;
    /// The entry ".contextoptions".
    std::span<const _contextOption> contextOptions() const;
    std::string_view saveVersion() const;  ///< "20.0.547"; empty: unknown

    const _takes& takes() const;
    /// The take that was active when the scene was saved; -1: unknown.
    qint32 activeTake() const;
    /// From now on nodes have the parameters and flags that the layer gives them; what was handed out before stays as
    /// it was. The active take is the scene as it was saved.
    void show(_layer layer);
    const _layer& shown() const;
    /// Whether anybody looked at one of the layer's numbers: else nothing that was read since depends on them.
    bool isLayerRead() const;

 private:
    std::unique_ptr<_sceneStore> store;
};

}  // namespace vxN
