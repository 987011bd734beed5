// The render settings of the stage that a driver renders.
#pragma once

#include <QString>

#include "evaluate/evaluator.h"

namespace vxP {

struct _stageSettings {
    vxN::_node node;  ///< false: there is not exactly one
    QString reason;   ///< why not
};

/// Looks for the one node with render settings among those that make the stage: the driver's `loppath` names the last
/// of them, else they are wired to the driver. Where the driver says which settings of the stage it renders, those
/// count. Throws `_budgetExceeded`.
_stageSettings stageSettingsOf(const vxN::_node& driver, vxV::_evaluator& evaluator);

}  // namespace vxP
