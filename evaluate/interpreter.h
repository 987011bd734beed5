// Computes expressions.
#pragma once

#include "evaluate/surroundings.h"
#include "evaluate/syntax.h"

namespace vxV {

/// The value of an expression where it stands. Of a choice only the needed side is evaluated, and a logical operator
/// is known as soon as one side decides it.
/// Throws `vxP::_budgetExceeded` where a budget is counted, and nothing else.
_valueOutcome evaluateExpression(const _syntax& expression, _surroundings& surroundings);

}  // namespace vxV
