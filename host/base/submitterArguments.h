// What a submitter would hand to the plug-in.
#pragma once

#include <vector>

namespace vxH {

/// The submitter's command line: element 0 is the program. Zero-terminated UTF-8, owned by the caller.
using _submitterArguments = std::vector<const char*>;

/// The same, with the argument that has scenes loaded as Houdini reads them.
inline _submitterArguments withResolving(_submitterArguments arguments) {
    arguments.push_back("-houdiniResolve");
    return arguments;
}

}  // namespace vxH
