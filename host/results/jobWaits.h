// Which job a job waits for.
#pragma once

#include <vector>

#include "host/results/job.h"

namespace vxH {

/// Finds the jobs that a scene's jobs wait for: fills `waitsFor` of each. Own numbers have 8 bits and repeat in a long
/// list: the nearest job before the waiting one is meant, at first among those with its driver and take.
void findWaits(std::vector<_job>& jobs);

}  // namespace vxH
