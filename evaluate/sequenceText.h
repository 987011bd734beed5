// Names of files of which there is one for each frame.
#pragma once

#include "evaluate/evaluator.h"

namespace vxV {

/// A parameter's text with the number of the frame as a variable ("$F4"), also where an expression computes it instead
/// of naming the variable: `padzero(4, $F)`, or the frame parameter of a cache. A text that changes with the frame in
/// another way is that of the current frame.
/// @param evaluator  keeps at least the variable F in texts; its frame is the same afterwards
/// @param[out] changes  the text is only that of the current frame
/// Throws `vxP::_budgetExceeded`.
_textOutcome sequenceText(_evaluator& evaluator, const vxN::_node& node, std::string_view parameter, bool& changes);

}  // namespace vxV
