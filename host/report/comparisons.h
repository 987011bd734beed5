// Which scenes of a report are compared, and what their comparison came to.
#pragma once

#include <QJsonArray>
#include <vector>

#include "host/results/sceneResult.h"

namespace vxH {

/// See reportData.h.
QJsonArray comparisons(const std::vector<const _sceneResult*>& scenes);

}  // namespace vxH
