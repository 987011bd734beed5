// Placeholders for the variant of a wedge in a job's names.
#pragma once

#include <QString>
#include <optional>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxP {

/// Writes a variant's number and name in place of the placeholders: into output folder, output file, the channels'
/// files and, for a job that renders an exported scene, the scene's name.
/// @param name  none: it cannot be told, and its placeholder stays
void nameWedgeVariant(vxJ::_JobBasics_largePath& job, int channelsEnd, const QString& number,
                      const std::optional<QString>& name);

/// Removes the placeholders from the same names until none is left, not even one that the removal of another formed.
void removeWedgePlaceholders(vxJ::_JobBasics_largePath& job, int channelsEnd);

}  // namespace vxP
