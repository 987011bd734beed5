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

std::optional<_frameRange> wholeFrames(const _job& job) {
    constexpr double furthest = 1e15;  // up to which a floating number tells whole frames apart
    const auto count = frameCount(job);
    const bool isWhole = std::floor(job.seqStart) == job.seqStart && std::abs(job.seqStart) <= furthest;
    if (!count || !isWhole || std::abs(job.seqEnd) > furthest) return std::nullopt;
    const auto first = static_cast<qint64>(job.seqStart);
    const auto places = static_cast<qint64>(*count) - 1;
    return _frameRange{first, first + places * job.seqStep, job.seqStep};
}

}  // namespace vxH
