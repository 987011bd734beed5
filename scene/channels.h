// The channels of a node, an entry ".chn": the expressions and keys that drive its parameters.
#pragma once

#include <QtGlobal>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxN {

/// How a segment goes from its first to its second key.
enum class _interpolation : quint8 {
    expression,  ///< the segment's expression is computed
    bezier,
    linear,
    constant,
    cubic,
    spline,
    ease,
    easein,
    easeout,
};

/// What stands for a channel before its first or behind its last key.
enum class _extend : quint8 { extend, hold, cycle, cycleoffset, slope, other };

/// A number at a segment's begin and at its end.
struct _inOut {
    double in = 0;
    double out = 0;
};

/// From one key to the next; the last one has length 0 and stands for the last key.
struct _segment {
    double length = 0;  ///< seconds
    _inOut value;
    _inOut slope;  ///< units a second
    _inOut accel;  ///< length of the handle
    _interpolation interpolation = _interpolation::expression;
    std::string_view expression;  ///< without quotes and escapes: "$FSTART", "bezier()"; empty: none
    std::string_view language;    ///< "python"; empty: the language of the node
};

struct _channel {
    std::string_view name;  ///< "tx"
    double start = 0;       ///< seconds, of the first key
    std::span<const _segment> segments;
    _extend before = _extend::extend;
    _extend behind = _extend::extend;
    /// The value before there was a channel.
    std::optional<double> defaultNumber;
    std::optional<std::string_view> defaultText;

    /// One expression for all times; else the segments are keys.
    bool isExpression() const {
        return segments.size() == 1 && segments[0].interpolation == _interpolation::expression;
    }
};

/// The channels of one node. All texts and spans in it live as long as it does.
class _channels {
 public:
    /// Reads by tokens and never fails: what is no channel is passed over.
    explicit _channels(std::string text);
    _channels(const _channels&) = delete;
    _channels& operator=(const _channels&) = delete;

    /// In the order of the scene.
    std::span<const _channel> all() const { return channels; }
    /// The channel of exactly this name, the last one if there are several; null: none.
    const _channel* find(std::string_view name) const;
    /// False: there was more than fits, or the block ended within a channel.
    bool isWhole() const { return whole; }
    /// What it takes in memory, roughly.
    qint64 bytes() const;

 private:
    friend class _channelReader;

    std::string source;
    std::deque<std::string> made;  ///< texts that do not stand in the source as they are
    std::vector<_segment> segments;
    std::vector<_channel> channels;
    std::vector<quint32> byName;
    bool whole = true;
};

}  // namespace vxN
