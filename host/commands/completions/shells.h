// The same facts in the languages of three shells. Each writes what its template beside this file leaves open.
#pragma once

#include <ostream>

#include "host/commands/completions/commandFacts.h"

namespace vxC {

void writeBash(std::ostream& out, const std::vector<_commandFacts>& program);
void writeZsh(std::ostream& out, const std::vector<_commandFacts>& program);
void writeFish(std::ostream& out, const std::vector<_commandFacts>& program);

}  // namespace vxC
