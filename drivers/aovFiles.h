// Output files of single render passes (AOVs): their parameters, and how their file names are put together.
#pragma once

#include <QLatin1String>
#include <QString>
#include <array>

#include "drivers/outNodeDriver.h"

namespace vxP {

// Families of pass parameters: slot N's is called by the family's name and N.
constexpr QLatin1String aovSeparateFile{"ar_aov_separate_file"};
constexpr QLatin1String aovCustomPrefix{"RS_aovCustomPrefix_"};
constexpr QLatin1String aovSuffix{"RS_aovSuffix_"};
constexpr QLatin1String aovFileFormat{"RS_aovFileFormat_"};

/// Takes a pass parameter, whose name ends with the slot's number, into its slot. A value relative to the scene
/// ("$HIP") sets `HIPFound_DisableLocalScene`.
/// @return false when the line is no pass parameter or its slot is none of 1 .. 19
bool readAovParameter(std::array<_aovSlot, aovSlotCount>& slots, const QString& line);

/// Completes the slots' file names: from prefix, suffix and format where the renderer keeps them apart (a missing
/// prefix is the image name without extension), and with printf-style frame numbers. The parts are emptied.
void assembleAovFileNames(std::array<_aovSlot, aovSlotCount>& slots, const QString& imageName);

}  // namespace vxP
