// What resolving a scene would change, in a line.
#pragma once

#include <QString>

#include "host/results/sceneResult.h"

namespace vxH {

/// "5 of 12 jobs differ when resolved, 2 more come: --resolve", each line with its end; empty where nothing would
/// change or nobody looked.
/// @param width  columns; 0: it is one line
QString resolvingText(const _sceneResult& scene, int width);

}  // namespace vxH
