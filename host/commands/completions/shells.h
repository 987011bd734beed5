// Completions in the languages of three shells, from vxscene's own command line. Each function writes what its template
// beside this file leaves open.
#pragma once

#include <ostream>

#include "host/commands/command.h"

namespace vxC {

// @param program  the program itself without a name, then its commands
void writeBash(std::ostream& out, const std::vector<vxH::_command>& program);
void writeZsh(std::ostream& out, const std::vector<vxH::_command>& program);
void writeFish(std::ostream& out, const std::vector<vxH::_command>& program);

}  // namespace vxC
