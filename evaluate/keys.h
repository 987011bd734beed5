// Channels that go through keys.
#pragma once

#include <functional>

#include "evaluate/value.h"
#include "scene/channels.h"

namespace vxV {

/// The value of a segment's expression at a time.
using _segmentExpression = std::function<_valueOutcome(const vxN::_segment& segment, double seconds)>;

/// A channel's value at a time, from its keys and expressions, before its first and after its last key as it says.
/// Values between two keys are known for constant, linear, bezier and cubic segments; for others only those at the
/// keys.
_valueOutcome channelAtTime(const vxN::_channel& channel, double seconds, const _segmentExpression& expression);

/// A bezier segment: slopes are units per second, `accel` is the length of a handle.
/// @param into  seconds from its start, at most its length
_numberOutcome bezierAt(const vxN::_segment& segment, double into);

}  // namespace vxV
