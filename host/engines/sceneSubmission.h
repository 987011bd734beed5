// From the jobs of a scene to what an engine is told.
#pragma once

#include <functional>
#include <vector>

#include "host/engines/commandTable.h"
#include "host/engines/engine.h"
#include "host/results/sceneResult.h"
#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxH {

/// What of a scene is wanted, and how.
struct _selection {
    /// The frames that are wanted of a job, numbered from 1, in ranges without a frame in common; a step for each. Not
    /// set: all of all jobs. What a job waits for among jobs without a frame here counts as done.
    std::function<std::vector<_frameRange>(int job)> framesOf;
    qint64 framesPerTask = 0;  ///< in place of the table's; 0: the table's
};

/// A job that the engine cannot be told of.
struct _refusedJob {
    int job;  ///< from 1
    QString driver;
    QString reason;  ///< "fractional frames"
};

struct _plannedScene {
    _submission submission;            ///< without the refused jobs
    std::vector<_refusedJob> refused;  ///< with those that wait for them
};

/// A simulation, each frame of which needs the one before.
bool runsOnOneMachine(const _job& job);

/// @param records  the scene's jobs as the plug-in left them, for their variables
_plannedScene planSubmission(const _sceneResult& scene, const vxJ::_JobBasicsArray& records, const _commandTable& table,
                             const _engine& engine, const _selection& selection);

}  // namespace vxH
