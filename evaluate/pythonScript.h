// The few Python expressions whose value is certain without running them.
#pragma once

#include <string_view>

#include "evaluate/surroundings.h"

namespace vxV {

/// Reads statements as far as the first one that is needed and not known here, which has the reason `python`:
///
///     import ...                                          (does nothing)
///     node = hou.pwd()                                    also pwd(), hou.node("."), and without a name for it
///     path = node.evalParm("lookatprim")                  a text, as far as whether it is empty
///     if not path:
///         return 0
///
/// and single ones that give a number, ch("../a/tx") or hou.ch(...), with or without `return`.
_valueOutcome evaluatePython(std::string_view script, _surroundings& surroundings);

}  // namespace vxV
