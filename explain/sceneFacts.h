// What a load learned about the scene as a whole.
#pragma once

#include "explain/explanation.h"
#include "explain/explanationBudget.h"
#include "plugin/sceneScan.h"

namespace vxE {

/// Version, frame range, takes, variables and the catalogues of the load that has just ended.
/// @param hasFrameRange  the scene has a frame range; else it is the default
/// @param[in,out] leftOut  is added to
_explainedFacts explainedFacts(const vxP::_sceneFacts& facts, bool hasFrameRange, _share& bytes, _leftOut& leftOut);

}  // namespace vxE
