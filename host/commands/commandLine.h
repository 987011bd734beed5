// The whole command line of vxscene: its commands, and what the help says about all of them.
#pragma once

#include <vector>

#include "host/commands/command.h"

namespace vxH {

/// The program itself, without a name, for its own options, followed by the commands. Each has the options that all
/// have.
std::vector<_command> commandLineParts();

/// Runs the command that the arguments ask for, or prints the help, the version or what is wrong with them.
/// Output that cannot be written in the end is an error too.
/// @return exit status
int runCommandLine(int argc, const char* const* argv, const _submitterArguments& submitter);

}  // namespace vxH
