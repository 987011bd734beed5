// The parameters of an output driver that the reader knows, in the order in which they are tried.
#pragma once

#include <QString>

#include "readers/outNodeDriver.h"

namespace vxP {

/// What a parameter means for the rest of its section.
enum class _step {
    next,       ///< the line is done
    unmatched,  ///< not this row's line after all: later rows are tried
    leave,      ///< the section is not wanted; what remains of it is not read
};

/// Applies the first rule that matches a trimmed parameter line.
/// @return `leave` when the section turns out to be none of an output driver, else `next`
_step applyOutNodeRules(_driver& driver, const QString& line);

}  // namespace vxP
