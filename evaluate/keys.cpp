// Finds the segment of a time and goes along it.
#include "evaluate/keys.h"

#include <algorithm>
#include <cmath>

namespace vxV {

namespace {

using vxN::_channel;
using vxN::_extend;
using vxN::_interpolation;
using vxN::_segment;

/// Keys stand on frames, whose times are rounded: so close to a key it is meant itself.
constexpr double timeNoise = 1e-7;
constexpr int bisections = 60;

double cubicAt(const _segment& segment, double into) {
    const double share = into / segment.length;
    const double back = 1 - share;
    return segment.value.in * back * back * (1 + 2 * share) + segment.value.out * share * share * (3 - 2 * share) +
           segment.slope.in * segment.length * share * back * back -
           segment.slope.out * segment.length * share * share * back;
}

_valueOutcome between(const _segment& segment, double into) {
    switch (segment.interpolation) {
        case _interpolation::constant:
            return _value(segment.value.in);
        case _interpolation::linear:
            return finite(segment.value.in + (segment.value.out - segment.value.in) * into / segment.length, "linear");
        case _interpolation::bezier:
            return asValue(bezierAt(segment, into));
        case _interpolation::cubic:
            return finite(cubicAt(segment, into), "cubic");
        case _interpolation::expression:
        case _interpolation::spline:
        case _interpolation::ease:
        case _interpolation::easein:
        case _interpolation::easeout:
            break;
    }
    return unknown(_reason::interpolation, std::string(segment.expression));
}

/// A time within the keys that stands for one outside of them, and what is added to the value there.
struct _folded {
    double seconds;
    double rounds;  ///< how often the keys have to be gone through
};

_folded fold(const _channel& channel, double seconds, double length) {
    const double rounds = std::floor((seconds - channel.start) / length);
    return {seconds - rounds * length, rounds};
}

_valueOutcome insideKeys(const _channel& channel, double seconds, const _segmentExpression& expression) {
    double begin = channel.start;
    for (std::size_t place = 0; place < channel.segments.size(); ++place) {
        const _segment& segment = channel.segments[place];
        const bool isLast = place + 1 == channel.segments.size();
        if (!isLast && seconds >= begin + segment.length - timeNoise) {
            begin += segment.length;
            continue;
        }
        if (segment.interpolation == _interpolation::expression) return expression(segment, seconds);
        const double into = std::clamp(seconds - begin, 0.0, segment.length);
        if (into <= timeNoise) return _value(segment.value.in);
        return into >= segment.length - timeNoise ? _valueOutcome(_value(segment.value.out)) : between(segment, into);
    }
    return unknown(_reason::interpolation, std::string(channel.name));
}

}  // namespace

_numberOutcome bezierAt(const _segment& segment, double into) {
    const double handleIn = segment.accel.in / std::hypot(1, segment.slope.in);
    const double handleOut = segment.accel.out / std::hypot(1, segment.slope.out);
    const double length = segment.length;
    // Handles that reach over the other key might turn the curve back in time.
    if (!(handleIn >= 0 && handleOut >= 0 && handleIn <= length && handleOut <= length)) {
        return unknown(_reason::interpolation, "bezier handles");
    }
    const auto along = [](double share, double a, double b, double c, double d) {
        const double back = 1 - share;
        return a * back * back * back + 3 * b * back * back * share + 3 * c * back * share * share +
               d * share * share * share;
    };
    double low = 0;
    double high = 1;
    for (int round = 0; round < bisections; ++round) {
        const double middle = (low + high) / 2;
        (along(middle, 0, handleIn, length - handleOut, length) < into ? low : high) = middle;
    }
    return along((low + high) / 2, segment.value.in, segment.value.in + segment.slope.in * handleIn,
                 segment.value.out - segment.slope.out * handleOut, segment.value.out);
}

_valueOutcome channelAtTime(const _channel& channel, double seconds, const _segmentExpression& expression) {
    double length = 0;
    for (const _segment& segment : channel.segments) length += segment.length;
    const bool isBefore = seconds < channel.start - timeNoise;
    const bool isBehind = seconds > channel.start + length + timeNoise;
    if (channel.segments.size() < 2 || (!isBefore && !isBehind)) return insideKeys(channel, seconds, expression);
    const _extend rule = isBefore ? channel.before : channel.behind;
    switch (rule) {
        case _extend::extend:
            return insideKeys(channel, seconds, expression);
        case _extend::cycle:
        case _extend::cycleoffset:
            break;
        case _extend::hold:
        case _extend::slope:
        case _extend::other:
            return unknown(_reason::interpolation, "outside the keys");
    }
    if (length <= 0) return unknown(_reason::interpolation, "outside the keys");
    const _folded within = fold(channel, seconds, length);
    const _valueOutcome value = insideKeys(channel, within.seconds, expression);
    if (!value || rule == _extend::cycle) return value;
    const _valueOutcome first = insideKeys(channel, channel.start, expression);
    const _valueOutcome last = insideKeys(channel, channel.start + length, expression);
    if (!first || !last) return first ? last : first;
    const _numberOutcome here = numberOf(*value);
    const _numberOutcome from = numberOf(*first);
    const _numberOutcome to = numberOf(*last);
    if (!here || !from || !to) return unknown(_reason::notANumber, std::string(channel.name));
    return finite(*here + within.rounds * (*to - *from), "cycleoffset");
}

}  // namespace vxV
