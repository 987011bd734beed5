// What a submitter would hand to the plug-in.
#pragma once

#include <vector>

namespace vxH {

/// The submitter's command line: element 0 is the program. Zero-terminated UTF-8, owned by the caller.
using _submitterArguments = std::vector<const char*>;

/// The argument that has scenes loaded as Houdini reads them; `--resolve` adds it.
inline constexpr const char* resolveArgument = "-houdiniResolve";

inline _submitterArguments withResolving(_submitterArguments arguments) {
    arguments.push_back(resolveArgument);
    return arguments;
}

}  // namespace vxH
