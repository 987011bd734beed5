// Frames that no renderer takes.
#pragma once

#include <QLatin1String>
#include <cmath>

namespace vxJ {

/// Why no renderer takes these frames: "a step of 0"; empty for frames that it takes.
inline QLatin1String frameFault(double start, double end, double step) {
    if (!std::isfinite(start) || !std::isfinite(end)) return QLatin1String{"a frame that is no number"};
    if (step == 0) return QLatin1String{"a step of 0"};
    return start > end ? QLatin1String{"starts behind its end"} : QLatin1String{};
}

}  // namespace vxJ
