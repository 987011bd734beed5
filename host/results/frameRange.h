// Whole frames in ranges, and lists of them as people write them.
#pragma once

#include <QString>
#include <vector>

namespace vxH {

/// Whole frames with equal distances.
struct _frameRange {
    qint64 first = 1;
    qint64 last = 1;  ///< a frame of the range: first + n * step
    qint64 step = 1;  ///< at least 1

    qint64 count() const { return (last - first) / step + 1; }
    bool operator==(const _frameRange&) const = default;
};

/// Frames in ascending order, each once.
using _frameList = std::vector<_frameRange>;

/// Frames of a range by their places in it, from 0 to one before `count()`.
struct _frameRun {
    qint64 first;
    qint64 last;
};

/// The same frames in few ranges. Time and memory go by the number of runs, not of frames.
/// @param runs  of places in the range, ascending, with a gap between them
_frameList foldedFrames(const _frameRange& range, const std::vector<_frameRun>& runs);

qint64 countOf(const _frameList& frames);

/// "1001-1040,1042,1050-1100x5". Empty for no frames.
QString frameListText(const _frameList& frames);

}  // namespace vxH
