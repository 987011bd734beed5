// The frames of jobs that are still to be made.
#pragma once

#include <vector>

#include "host/files/diskState.h"

namespace vxH {

/// What is left of a job.
struct _framesLeft {
    QString unknown;    ///< why that is not known, in one line; empty: it is
    _frameList frames;  ///< without any: all that the job writes is there
};

/// An entry for each job: the frames of which one of its files at least is missing. A job whose main output is not
/// known or cannot be looked at is not known; channels whose names are not known say nothing.
/// @param files   of all jobs
/// @param states  of these
std::vector<_framesLeft> framesLeft(const std::vector<_outputFiles>& files, const std::vector<_diskState>& states);

/// The same of a scene, from the disk. Without sizes and times only what is absent is left. Of a job that only feeds
/// others, as one that exports scene descriptions does, no frame is left that is left of none of them: people remove
/// such files once the images are there. A job that writes one file for all frames has all of them left, or none.
std::vector<_framesLeft> framesLeft(const _explainedScene& scene, const _diskQuestion& question);

}  // namespace vxH
