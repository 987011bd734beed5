// What a load learned about the scene as a whole, as JSON.
#pragma once

#include <QJsonObject>

#include "plugin/sceneScan.h"

namespace vxE {

/// Version, frame range, takes, variables and the catalogues of the load that has just ended.
/// @param frameRangeStored  the scene has a frame range; else it is the default
QJsonObject sceneFactsJson(const vxP::_sceneFacts& facts, bool frameRangeStored);

}  // namespace vxE
