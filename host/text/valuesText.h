// Values of parameters for people to read.
#pragma once

#include <QString>

#include "host/base/terminal.h"
#include "host/results/sceneValues.h"

namespace vxH {

/// A heading for each node, below it a line "name = value" for each value, with the expression and, where Houdini
/// stored another value, that. Characters that could steer a terminal become "?".
QString valuesText(const _sceneValues& scene, const _terminal& terminal);

}  // namespace vxH
