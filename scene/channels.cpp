#include "scene/channels.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "scene/limits.h"
#include "scene/nameIndex.h"
#include "scene/textTokens.h"

namespace vxN {

namespace {

struct _interpolationName {
    std::string_view expression;
    _interpolation interpolation;
};

constexpr std::array interpolationNames{
    _interpolationName{"bezier()", _interpolation::bezier},
    _interpolationName{"linear()", _interpolation::linear},
    _interpolationName{"constant()", _interpolation::constant},
    _interpolationName{"cubic()", _interpolation::cubic},
    _interpolationName{"spline()", _interpolation::spline},
    _interpolationName{"ease()", _interpolation::ease},
    _interpolationName{"easein()", _interpolation::easein},
    _interpolationName{"easeout()", _interpolation::easeout},
};

struct _extendName {
    std::string_view word;
    _extend extend;
};

constexpr std::array extendNames{
    _extendName{"extend", _extend::extend}, _extendName{"hold", _extend::hold},
    _extendName{"cycle", _extend::cycle},   _extendName{"cycleoffset", _extend::cycleoffset},
    _extendName{"slope", _extend::slope},
};

struct _pairName {
    std::string_view key;
    _inOut _segment::*pair;
};

constexpr std::array pairNames{
    _pairName{"value", &_segment::value},
    _pairName{"slope", &_segment::slope},
    _pairName{"accel", &_segment::accel},
};

constexpr auto nameOf = [](const _channel& channel) { return channel.name; };

_interpolation interpolationOf(std::string_view expression) {
    const auto* const row = std::find_if(interpolationNames.begin(), interpolationNames.end(),
                                         [&](const auto& name) { return name.expression == expression; });
    return row == interpolationNames.end() ? _interpolation::expression : row->interpolation;
}

_extend extendOf(std::string_view word) {
    const auto* const row =
        std::find_if(extendNames.begin(), extendNames.end(), [&](const auto& name) { return name.word == word; });
    return row == extendNames.end() ? _extend::other : row->extend;
}

}  // namespace

/// Reads the block of one node: "{", then "channel name { key = value ... segment { key = value ... } ... }" for each
/// channel, "}".
class _channelReader {
 public:
    explicit _channelReader(_channels& read) : into(read), tokens(read.source) {}

    void readAll() {
        into.whole = into.source.empty() || readBlock();
        setSpans();
        into.byName = indexByName(into.channels, nameOf);
    }

 private:
    bool readBlock() {
        while (const auto token = tokens.next()) {
            if (token->is("}")) return true;
            if (token->is("channel") && !readChannel()) return false;
        }
        return false;
    }

    bool readChannel() {
        const auto name = tokens.next();
        if (!name || into.channels.size() >= mostChannels) return false;
        if (name->isQuoted || !tokens.take("{")) return true;
        into.channels.push_back({});
        into.channels.back().name = name->text;
        const bool isComplete = readChannelKeys(into.channels.back());
        ends.push_back(into.segments.size());
        return isComplete;
    }

    bool readChannelKeys(_channel& channel) {
        while (const auto key = tokens.next()) {
            if (key->is("}")) return true;
            if (key->is("segment") && tokens.take("{")) {
                if (!readSegment()) return false;
            } else if (tokens.take("=")) {
                readChannelKey(channel, key->text);
            }
        }
        return false;
    }

    void readChannelKey(_channel& channel, std::string_view key) {
        const auto value = tokens.next();
        if (!value) return;
        if (key == "lefttype") channel.before = extendOf(value->text);
        if (key == "righttype") channel.behind = extendOf(value->text);
        if (key == "start") channel.start = numberIn(value->text).value_or(0);
        if (key == "default") channel.defaultNumber = numberIn(value->text);
        if (key == "defaultString") channel.defaultText = unescapedInner(*value, into.made);
    }

    bool readSegment() {
        if (into.segments.size() >= mostSegments) return false;
        _segment& segment = into.segments.emplace_back();
        while (const auto key = tokens.next()) {
            if (key->is("}")) return true;
            if (tokens.take("=")) readSegmentKey(segment, key->text);
        }
        return false;
    }

    void readSegmentKey(_segment& segment, std::string_view key) {
        if (tokens.take("{")) return tokens.skipBlock();
        const auto* const pair =
            std::find_if(pairNames.begin(), pairNames.end(), [&](const auto& name) { return name.key == key; });
        if (pair != pairNames.end()) return readPair(segment.*(pair->pair));
        const auto value = tokens.next();
        if (!value) return;
        if (key == "length") segment.length = numberIn(value->text).value_or(0);
        if (key == "language") segment.language = value->text;
        if (key == "expr") {
            segment.expression = unescaped(value->text, into.made);
            segment.interpolation = interpolationOf(segment.expression);
        }
    }

    /// One number stands for both.
    void readPair(_inOut& pair) {
        pair.in = nextNumber().value_or(0);
        pair.out = nextNumber().value_or(pair.in);
    }

    std::optional<double> nextNumber() {
        _textTokens behind = tokens;
        const auto token = behind.next();
        const auto number = token && !token->isQuoted ? numberIn(token->text) : std::nullopt;
        if (number) tokens = behind;
        return number;
    }

    void setSpans() {
        std::size_t first = 0;
        for (std::size_t i = 0; i < ends.size(); ++i) {
            into.channels[i].segments = std::span(into.segments).subspan(first, ends[i] - first);
            first = ends[i];
        }
    }

    _channels& into;
    _textTokens tokens;
    std::vector<std::size_t> ends;  ///< positions behind each channel's segments
};

_channels::_channels(std::string text) : source(std::move(text)) {
    _channelReader(*this).readAll();
}

const _channel* _channels::find(std::string_view name) const {
    return findLast(channels, byName, name, nameOf);
}

qint64 _channels::bytes() const {
    return bytesOfText(source, made) + bytesOfItems(segments) + bytesOfItems(channels) + bytesOfItems(byName);
}

}  // namespace vxN
