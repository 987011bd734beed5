// What comparing two scenes came to: which jobs came, went or changed.
#pragma once

#include <QJsonObject>
#include <vector>

#include "host/results/jobFields.h"
#include "host/results/sceneResult.h"

namespace vxH {

/// A job that differs. Numbers count from 1, as in the table of jobs; 0: the scene has no such job.
struct _jobDifference {
    int oldNumber;
    int newNumber;
    std::vector<const _jobField*> fields;  ///< that differ in a job that both scenes have, by name

    bool hasCome() const { return oldNumber == 0; }
    bool hasGone() const { return newNumber == 0; }
};

struct _jobDiff {
    std::vector<_jobDifference> differences;  ///< as in the new scene; then jobs that went, as in the old one
    int unchanged = 0;                        ///< jobs
};

/// The job with that number.
const _job& jobNumbered(const _sceneResult& scene, int number);

/// Both paths, whole jobs that came and went, fields of those that changed.
QJsonObject diffToJson(const _jobDiff& diff, const _sceneResult& before, const _sceneResult& now);

}  // namespace vxH
