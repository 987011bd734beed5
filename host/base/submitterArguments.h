// What a submitter would hand to the plug-in.
#pragma once

#include <vector>

namespace vxH {

/// The submitter's command line: element 0 is the program. Zero-terminated UTF-8, owned by the caller.
using _submitterArguments = std::vector<const char*>;

}  // namespace vxH
