// The commands of vxscene, each in a file of its own.
#pragma once

#include <array>

#include "host/commands/command.h"

namespace vxH {

_command jobsCommand();
_command explainCommand();
_command reportCommand();
_command filesCommand();
_command varsCommand();
_command diffCommand();
_command valuesCommand();
_command exportCommand();
_command submitCommand();
_command infoCommand();

/// In the order in which the help shows them.
inline constexpr std::array allCommands{jobsCommand, explainCommand, reportCommand, filesCommand,  varsCommand,
                                        diffCommand, valuesCommand,  exportCommand, submitCommand, infoCommand};

}  // namespace vxH
