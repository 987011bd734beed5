// An explained scene for people to read.
#pragma once

#include <QString>

#include "host/base/terminal.h"
#include "host/results/explainedScene.h"

namespace vxH {

/// What became of drivers, first those with jobs, then those without; what was not recognised; warnings; and the facts
/// of the scene, as far as they are asked for. Lines fit the terminal's width. Characters that could steer a
/// terminal become "?". Nothing for a scene that could not be read: its error says all.
/// @param everySection  otherwise a line tells how many sections nobody misses (`isAside`) are left out
QString explanationText(const _explainedScene& scene, bool everySection, const _terminal& terminal);

}  // namespace vxH
