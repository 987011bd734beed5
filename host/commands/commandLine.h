// The whole command line of vxscene: its commands, and what the help says about all of them.
#pragma once

#include <vector>

#include "host/access/sceneLoad.h"

namespace CLI {
class App;
}

namespace vxH {

struct _command;

/// Makes an empty program that of vxscene. @return its commands, in the order in which the help shows them
std::vector<_command> setUpCommandLine(CLI::App& program);

/// Runs the command that the arguments ask for, or prints the help, the version or what is wrong with them.
/// Output that cannot be written in the end is told too.
/// @return exit status
int runCommandLine(int argc, const char* const* argv, const _submitterArguments& submitter);

}  // namespace vxH
