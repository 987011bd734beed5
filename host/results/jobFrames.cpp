#include "host/results/jobFrames.h"

#include <cmath>

namespace vxH {

QString frameFault(const _job& job) {
    if (!job.seqFrameSet.isEmpty()) return {};
    if (!std::isfinite(job.seqStart) || !std::isfinite(job.seqEnd)) return QStringLiteral("a frame that is no number");
    if (job.seqStep == 0) return QStringLiteral("a step of 0");
    return job.seqStart > job.seqEnd ? QStringLiteral("starts behind its end") : QString{};
}

std::optional<double> frameCount(const _job& job) {
    if (!job.seqFrameSet.isEmpty() || job.seqStep < 1 || !frameFault(job).isEmpty()) return std::nullopt;
    return std::floor((job.seqEnd - job.seqStart) / job.seqStep) + 1;
}

}  // namespace vxH
