// A scene's stored values against computed ones, in this process.
#pragma once

#include "host/results/sceneCheck.h"

namespace vxH {

/// Compares all channels, see evaluate/storedCheck.h for what the verdicts mean.
/// @param scene  absolute path
/// @param onlyDiffering  keep no channels but those that differ; all are counted
_sceneCheck checkOf(const QString& scene, bool onlyDiffering);

}  // namespace vxH
