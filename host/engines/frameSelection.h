// Frames and jobs as people choose them: "1001-1010,1020-1100x5".
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "host/engines/submission.h"

namespace vxH {

/// Largest frame, and the smallest below 0: engines count in 32 bits.
constexpr qint64 mostFrame = 2147483647;

/// The ranges in their order; each ends with a frame of its own. Numbers of jobs are given in the same way.
/// @return none: the text is no list of ranges
std::optional<std::vector<_frameRange>> readRanges(const QString& text);

/// The frames of the first range that are in the second too.
/// @return none: there is no such frame
std::optional<_frameRange> commonFrames(const _frameRange& range, const _frameRange& other);

/// The same of all ranges of two lists, in the order of the first.
std::vector<_frameRange> commonFrames(const std::vector<_frameRange>& ranges, const std::vector<_frameRange>& others);

}  // namespace vxH
