// What is kept of a host's job array.
#pragma once

#include <vector>

#include "host/results/sceneResult.h"
#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxH {

/// In place of a job's number: all jobs of a scene.
constexpr int allJobs = 0;

/// All jobs, with the jobs they wait for.
std::vector<_job> jobsOf(const vxJ::_JobBasicsArray& records);

/// The variables of each job, with the values of the compact form of a job, cut at its capacities.
/// @param jobNumber  the only job wanted, from 1, or `allJobs`; a number that no job has gives an empty list
std::vector<_jobVariables> variablesOf(const vxJ::_JobBasicsArray& records, int jobNumber);

}  // namespace vxH
