// The options of a command that takes many scenes.
#pragma once

#include <string>
#include <vector>

#include "host/batch/shard.h"
#include "host/commands/command.h"

namespace vxH {

struct _sceneOptions {
    std::vector<std::string> scenes;       ///< files, folders, and "-" for a list on the standard input
    bool recursive = false;                ///< look into the folders below a folder too
    int parallel = 1;                      ///< scenes at a time
    std::chrono::milliseconds timeout{0};  ///< for each scene; 0: none
    bool noProgress = false;
    _shard shard;                         ///< the part of the scenes that is taken
    _colour colour = _colour::automatic;  ///< of commands that have such an option
};

/// Adds the options without the scenes.
/// @param options  have to outlive the command
void addRunOptions(_command& command, _sceneOptions& options);

/// Adds the scenes and their options to the command; `parallel` is all cores available where it is not given.
/// @param options  have to outlive the command
void addSceneOptions(_command& command, _sceneOptions& options);

}  // namespace vxH
