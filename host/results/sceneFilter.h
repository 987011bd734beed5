// An explained scene with less of its explanation.
#pragma once

#include "host/results/explainedScene.h"

namespace vxH {

/// Leaves of sections, unrecognised ones and warnings those that the filter asks for, and notes the filter. A warning
/// stays where its node, or the driver of one of its jobs, matches. Jobs stay: their numbers are those of the scene.
void applyFilter(const _explanationFilter& filter, _explainedScene& scene);

}  // namespace vxH
