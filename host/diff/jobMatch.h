// Which jobs of two versions of a scene are the same one.
#pragma once

#include <vector>

#include "host/results/job.h"

namespace vxH {

/// For each new job the index of the same job among the old ones, or `noJob`. Jobs are the same when they have the
/// driver in common and as much as possible of renderer, take, output, and whether they wait for another job; where
/// several have as much in common, the first goes with the first. A job that differs in renderer or take is only found
/// again as long as there is no other for it to be mistaken for. Its place and its number do not matter.
/// @param before, now  jobs with marks, see sceneMarks.h: what the scenes bring into their output does not matter
std::vector<int> matchedJobs(const std::vector<_job>& before, const std::vector<_job>& now);

}  // namespace vxH
