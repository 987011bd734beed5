// Variables of frame and time.
#pragma once

#include <optional>
#include <string_view>

#include "evaluate/value.h"
#include "scene/scene.h"

namespace vxV {

/// A moment of a scene. What the scene does not say is unknown.
struct _clock {
    std::optional<double> fps;
    std::optional<double> frame;               ///< 1 is the time 0
    std::optional<vxN::_range> globalRange;    ///< seconds
    std::optional<vxN::_range> playbackRange;  ///< frames
    std::optional<double> playbackStep;        ///< frames

    std::optional<double> time() const;  ///< seconds
    /// The frame at a time; a whole one where only the digits of the time make it a broken one.
    std::optional<double> frameAt(double seconds) const;
};

/// A variable whose value the scene's time line gives.
struct _timeVariable {
    std::string_view name;
    bool changes;  ///< with the frame
    std::optional<double> (*value)(const _clock& clock);
};

/// Null: none of them. Of the global range: $FSTART and $FEND are its first and last frame, $TSTART and $TEND
/// the times at which these begin, as stored values of real scenes show.
const _timeVariable* timeVariableNamed(std::string_view name);

/// An option of the context that the scene's time line gives: `@fps`, the range `@fstart @fend @finc`, and that of a
/// render, `@ropstart @ropend @ropinc`, which is the same as long as nothing renders. Which of the two ranges that a
/// scene has is meant is not certain: none where they differ.
std::optional<double> timeOption(std::string_view name, const _clock& clock);

/// True for a name that nodes of some type set while they cook, such as PT.
bool isCookingVariable(std::string_view name);

}  // namespace vxV
