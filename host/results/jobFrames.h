// How many frames a job has.
#pragma once

#include <QString>
#include <optional>

#include "host/results/frameRange.h"
#include "host/results/job.h"

namespace vxH {

/// Why no renderer takes the job's frames: "a step of 0"; empty for frames that it takes.
QString frameFault(const _job& job);

/// Nothing where it is not known: of a frame set, and of frames that no renderer takes. A floating number, as frames
/// are.
std::optional<double> frameCount(const _job& job);

/// The job's frames where they are whole numbers, as frame numbers in the names of files are; nothing for others, and
/// where `frameCount` knows nothing.
std::optional<_frameRange> wholeFrames(const _job& job);

}  // namespace vxH
