// Variables that begin like the frame's and are others: $FARM.
#pragma once

#include <QString>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxP {

/// A name in which the readers take no such variable for the frame; variables of the scene are left to them.
QString guardedFromFrames(const QString& name);

/// Takes the guards out of a job's names.
void removeFrameGuards(vxJ::_JobBasics_largePath& job);

}  // namespace vxP
