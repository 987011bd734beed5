// Paths of nodes and references to their parameters, as expressions write them.
#pragma once

#include <string_view>

#include "evaluate/value.h"
#include "scene/node.h"

namespace vxV {

/// The node at a path that begins at a node; else `lockedContents` or `missingNode`.
_outcome<vxN::_node> nodeAt(const vxN::_node& from, std::string_view path);

/// What `../box1/tx` means: a node and the name of a component.
struct _reference {
    vxN::_node node;
    std::string_view name;  ///< part of the text that was read
};
_outcome<_reference> resolveReference(const vxN::_node& from, std::string_view text);

/// True for nodes that hold a network of another kind than the one they are in.
bool holdsOwnNetwork(const vxN::_node& node);

/// The network whose kind of nodes a node is: of one in a simulation the node that simulates.
_textOutcome creatorOf(const vxN::_node& node);

}  // namespace vxV
