// Names of files of which there is one for each frame.
#pragma once

#include <functional>

#include "evaluate/evaluator.h"

namespace vxV {

/// A text with the number of the frame as a variable ("$F4"), also where an expression computes it instead of naming
/// the variable: `padzero(4, $F)`, or the frame parameter of a cache. One that changes with the frame in another way is
/// unknown (`_reason::uncertain`).
/// @param evaluator  its frame is the same afterwards; keeps at least the variable F in texts
/// @param textNow    the text at the evaluator's frame
/// Throws what `textNow` throws.
_textOutcome sequenceText(_evaluator& evaluator, const std::function<_textOutcome(_dependence&)>& textNow);

}  // namespace vxV
