// Loads of scenes through the plug-in's entry point and its real device, from a file in memory.
#pragma once

#include <functional>

#include "fuzz/fuzzInput.h"
#include "plugin/vxSceneParserHoudini.h"

namespace vxFuzz {

using _loader = std::function<qint32(vxP::_dataPARS_LoadSceneFile*)>;

/// Writes the scene, loads it, and checks what the plug-in promises of the jobs. @return the result code
qint32 loadScene(std::string_view scene, vxJ::_JobBasicsArray& jobs, const _loader& loader = pLoadSceneFile);

}  // namespace vxFuzz
