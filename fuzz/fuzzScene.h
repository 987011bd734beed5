// Loads of scenes through the plug-in's entry point and its real device, from a file in memory.
#pragma once

#include <functional>

#include "fuzz/fuzzInput.h"
#include "plugin/vxSceneParserHoudini.h"

namespace vxFuzz {

using _loader = std::function<qint32(vxP::_dataPARS_LoadSceneFile*)>;

/// Writes the scene, loads it, and checks what the plug-in promises of the jobs. @return the result code
/// @param mostWaits  jobs that one waits for at most; a plain load knows no wires
qint32 loadScene(std::string_view scene, vxJ::_JobBasicsArray& jobs, const _loader& loader = pLoadSceneFile,
                 int mostWaits = 1);

}  // namespace vxFuzz
