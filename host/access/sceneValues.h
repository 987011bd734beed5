// The parameters of a scene's nodes, read and computed in this process.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/results/sceneValues.h"

namespace vxH {

/// Which values are asked for.
struct _wantedValues {
    /// Patterns as in a shell: of a path, or, without a "/", of a node's name anywhere. None: all nodes.
    std::vector<std::string> nodes;
    bool onlyComputed = false;    ///< those with a channel, variables or an expression
    bool onlyDrivers = false;     ///< those of output drivers, known by their types
    std::optional<double> frame;  ///< none: the scene's current one
};

/// Values of the scene where it lies now, with the environment of this process. What Houdini alone could compute has a
/// reason. A pattern that no node fits is a failure; so is a scene with more values than fit into memory (256 MiB).
/// @param scene  absolute path
_sceneValues valuesOf(const QString& scene, const _wantedValues& wanted);

}  // namespace vxH
