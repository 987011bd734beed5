// The variables of jobs, as JSON and as lines for people.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxH {

/// Number that stands for all jobs of a scene.
constexpr int allJobs = 0;

/// One object per job: {job, layer, variables: [{name, value}]}, see jobs/jobVariables.h. `job` counts from 1. The
/// values are those of the compact form of a job, cut at its capacities.
/// @param jobNumber  the only job wanted, or `allJobs`; a number that no job has gives an empty list
QJsonArray jobVariableLists(const vxJ::_JobBasicsArray& jobs, int jobNumber);

/// The same lists as text: "job 2  /out/mantra1", then a line "name = value" for each variable. Characters that could
/// steer a terminal become "?".
QStringList jobVariableLines(const QJsonArray& lists);

}  // namespace vxH
