// Loads of scenes through the plug-in's entry point and its real device, from a file in memory.
#pragma once

#include "fuzz/fuzzInput.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxFuzz {

/// Writes the scene, loads it, and checks what the plug-in promises of the jobs.
void loadScene(std::string_view scene, vxJ::_JobBasicsArray& jobs);

}  // namespace vxFuzz
