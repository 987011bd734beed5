// An explained scene for people to read.
#pragma once

#include <QString>

#include "host/base/terminal.h"
#include "host/results/explainedScene.h"

namespace vxH {

/// The scene's facts, what became of each section, what was not recognised, and warnings. Characters that could steer a
/// terminal become "?". Nothing for a scene that could not be read: its error says all.
QString explanationText(const _explainedScene& scene, const _terminal& terminal);

}  // namespace vxH
