#include "host/engines/submission.h"

#include <algorithm>

namespace vxH {

_frameRange framesOfTask(const _farmStep& step, qint64 task) {
    const qint64 first = step.frames.first + task * step.framesPerTask * step.frames.step;
    const qint64 last = first + (step.framesPerTask - 1) * step.frames.step;
    return {first, std::min(last, step.frames.last), step.frames.step};
}

bool areChunkedAlike(const _farmStep& step, const _farmStep& other) {
    return step.frames == other.frames && step.framesPerTask == other.framesPerTask;
}

}  // namespace vxH
