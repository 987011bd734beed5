// The whole command line of vxscene: its commands, and what the help says about all of them.
#pragma once

#include <vector>

#include "host/command.h"

namespace vxH {

/// Makes an empty program that of vxscene. @return its commands, in the order in which the help shows them
std::vector<_command> setUpCommandLine(CLI::App& program);

}  // namespace vxH
