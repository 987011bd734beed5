// Channels that go through keys.
#pragma once

#include <functional>

#include "evaluate/value.h"
#include "scene/channels.h"

namespace vxV {

/// The value of a segment's expression at a time.
using _segmentExpression = std::function<_valueOutcome(const vxN::_segment& segment, double seconds)>;

/// A channel's value at a time, from its keys and expressions, before its first and behind its last key as it says.
/// What stands between two keys is told of constant, linear, bezier and cubic segments; of other ones only the keys.
_valueOutcome channelAtTime(const vxN::_channel& channel, double seconds, const _segmentExpression& expression);

/// A bezier segment: slopes are units a second, `accel` is the length of a handle.
/// @param into  seconds from its begin, at most its length
_numberOutcome bezierAt(const vxN::_segment& segment, double into);

}  // namespace vxV
