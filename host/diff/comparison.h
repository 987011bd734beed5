// What has become of a scene's jobs: which came, went or changed.
#pragma once

#include <vector>

#include "host/results/jobDiff.h"

namespace vxH {

enum class _compared {
    jobs,        ///< not what follows from the scenes' own names and folders, nor from the jobs' numbers
    everyField,  ///< every field as it is
};

/// A scene made ready to be compared, once for any number of comparisons. The scene has to outlive it.
struct _comparable {
    explicit _comparable(const _sceneResult& sceneResult);

    const _sceneResult& scene;
    std::vector<_job> jobs;  ///< with marks for what the scene brings into their paths, see sceneMarks.h
};

/// Compares the jobs of two scenes; see jobMatch.h for which of them are the same.
///
/// `_compared::jobs` leaves `preID` out, compares `waitForPreIDs` by the jobs that are meant, and takes texts that hold
/// paths for equal when they only differ in what sceneMarks.h makes marks of.
_jobDiff diffJobs(const _comparable& before, const _comparable& now, _compared compared);

}  // namespace vxH
