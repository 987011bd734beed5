// From a closed output-driver section to its jobs.
#pragma once

#include "drivers/outNodeDriver.h"

namespace vxP {

/// Adds the driver's job to the host's array, or an export job and the render job that waits for it. A driver without
/// a usable output name adds none and sets `emptyNodesfound`.
/// @return resultSuccess, or resultNoMoreJobs when the array has no room
qint32 addJobsOf(_driver& driver);

}  // namespace vxP
