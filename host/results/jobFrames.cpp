#include "host/results/jobFrames.h"

#include <cmath>

#include "jobs/frameFault.h"

namespace vxH {

QString frameFault(const _job& job) {
    return job.seqFrameSet.isEmpty() ? QString{vxJ::frameFault(job.seqStart, job.seqEnd, job.seqStep)} : QString{};
}

std::optional<double> frameCount(const _job& job) {
    if (!job.seqFrameSet.isEmpty() || job.seqStep < 1 || !frameFault(job).isEmpty()) return std::nullopt;
    return std::floor((job.seqEnd - job.seqStart) / job.seqStep) + 1;
}

}  // namespace vxH
