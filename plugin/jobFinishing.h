// After the scan: what only the whole scene can tell is written into the jobs.
#pragma once

#include "jobs/VX_DataTypes_plugin.h"
#include "plugin/resolvedDrivers.h"
#include "plugin/sceneScan.h"

namespace vxP {

/// Completes the jobs of a scene that was read to its end, lets them wait for those that are wired to their drivers,
/// and copies them for takes and wedges.
/// @param drivers  of a resolved load; none in a plain one
/// @return resultSuccess, resultNoUsableOutput when there is no job although there are drivers, or resultNoMoreJobs
///         when the array has no room for a copy; the jobs made before stay
qint32 finishJobs(_dataPARS_LoadSceneFile& load, const _sceneFacts& facts, const _resolvedDrivers& drivers = {});

}  // namespace vxP
