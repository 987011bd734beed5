// Compares channels with their stored values.
#include "evaluate/storedCheck.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "evaluate/storedEvidence.h"

namespace vxV {

namespace {

/// Frames beyond the scene's ranges that may have been current: a range is often made shorter later.
constexpr double framesAround = 500;
constexpr double mostFrames = 3000;

constexpr std::array verdictNames{
    QLatin1String("agrees"),        QLatin1String("other frame"), QLatin1String("other place"),
    QLatin1String("not evaluated"), QLatin1String("earlier"),     QLatin1String("stamped"),
    QLatin1String("differs"),       QLatin1String("no value"),
};
static_assert(verdictNames.size() == verdictCount);

_options withStoredPlace(const vxN::_byteSource& source) {
    _options options;
    options.source = &source;
    options.storedPlace = true;
    return options;
}

/// Frames at which the scene may have been evaluated.
vxN::_range possibleFrames(const vxN::_timeline& timeline) {
    vxN::_range frames = timeline.frameRange.value_or(vxN::_range{1, 1});
    if (timeline.globalRange && timeline.fps) {
        frames.first = std::min(frames.first, timeline.globalRange->first * *timeline.fps + 1);
        frames.last = std::max(frames.last, timeline.globalRange->last * *timeline.fps);
    }
    frames.first = std::round(std::min(frames.first, 1.0));
    frames.last = std::min(std::round(frames.last) + framesAround, frames.first + mostFrames);
    return frames;
}

class _check {
 public:
    _check(const vxN::_scene& ofScene, const vxN::_byteSource& source)
        : scene(ofScene), evaluator(ofScene, withStoredPlace(source)), evidence(ofScene, source) {}

    _storedCounts run(const std::function<void(const _checkedChannel&)>& tell);

 private:
    /// A channel whose verdict waits for those that hand on the same value.
    struct _checked {
        vxN::_node node;
        std::string channel;
        std::string source;  ///< `handedOn`
        _valueOutcome computed;
        _verdict verdict;
    };

    void checkNode(const vxN::_node& node);
    _verdict verdictOn(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored,
                       const _valueOutcome& computed, const _dependence& dependence);
    /// How the stored value agrees at a frame that is not the scene's.
    bool agreesAtOtherFrame(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored);
    bool agreesAtOtherPlace(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored,
                            bool anyFrame);
    void findEarlier();

    const vxN::_scene& scene;
    _evaluator evaluator;
    _storedEvidence evidence;
    std::vector<_checked> all;
};

_storedCounts _check::run(const std::function<void(const _checkedChannel&)>& tell) {
    for (qint32 index = 0; index < scene.nodeCount(); ++index) checkNode(scene.node(index));
    findEarlier();
    _storedCounts counts;
    for (const _checked& one : all) {
        ++counts.pairs;
        ++counts.verdicts[static_cast<std::size_t>(one.verdict)];
        if (!one.computed) ++counts.reasons[one.computed.why().reason];
        if (!tell) continue;
        const auto channel = one.node.channel(one.channel);
        const auto stored = one.node.component(one.channel);
        tell({one.node, one.channel, channel->segments.front().expression, stored->text, one.computed, one.verdict});
    }
    return counts;
}

void _check::checkNode(const vxN::_node& node) {
    const auto channels = node.channels();
    const auto parameters = node.parameters();
    for (const vxN::_channel& channel : channels->all()) {
        const vxN::_value* const stored = parameters->component(channel.name);
        if (channel.segments.empty() || stored == nullptr || stored->channel != channel.name) continue;
        _dependence dependence;
        const _valueOutcome computed = evaluator.channelValue(node, channel.name, &dependence);
        const _verdict verdict = verdictOn(node, channel, *stored, computed, dependence);
        const bool sharesValue = computed && !dependence.time;
        all.push_back({node, std::string(channel.name), sharesValue ? handedOn(node, channel) : std::string(), computed,
                       verdict});
    }
}

_verdict _check::verdictOn(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored,
                           const _valueOutcome& computed, const _dependence& dependence) {
    if (!computed) return _verdict::noValue;
    if (isSameValue(stored.text, *computed)) return _verdict::agrees;
    if (evidence.isUntouched(node, channel, stored)) return _verdict::notEvaluated;
    if (dependence.stamp) return _verdict::stamped;
    if (dependence.time && agreesAtOtherFrame(node, channel, stored)) return _verdict::otherFrame;
    const bool isText = std::holds_alternative<std::string>(*computed);
    if (isText && agreesAtOtherPlace(node, channel, stored, dependence.time)) return _verdict::otherPlace;
    return _verdict::differs;
}

bool _check::agreesAtOtherFrame(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored) {
    const double saved = evaluator.frame();
    const vxN::_range frames = possibleFrames(scene.timeline());
    bool found = false;
    for (double frame = frames.first; frame <= frames.last && !found; ++frame) {
        evaluator.setFrame(frame);
        const _valueOutcome computed = evaluator.channelValue(node, channel.name);
        found = computed && isSameValue(stored.text, *computed);
    }
    evaluator.setFrame(saved);
    return found;
}

bool _check::agreesAtOtherPlace(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored,
                                bool anyFrame) {
    vxN::_range frames = possibleFrames(scene.timeline());
    if (!anyFrame) frames.last = frames.first;
    for (double frame = frames.first; frame <= frames.last; ++frame) {
        if (evidence.isOfOtherPlace(node, channel.name, stored.text, frame)) return true;
    }
    return false;
}

/// Where one channel has the computed value, another one that hands on the same has an earlier one.
void _check::findEarlier() {
    std::unordered_map<std::string, bool> agreeing;
    for (const _checked& one : all) {
        if (one.verdict == _verdict::agrees && !one.source.empty()) agreeing[one.source] = true;
    }
    for (_checked& one : all) {
        if (one.verdict == _verdict::differs && agreeing.contains(one.source)) one.verdict = _verdict::earlier;
    }
}

}  // namespace

QLatin1String nameOf(_verdict verdict) {
    return verdictNames[static_cast<std::size_t>(verdict)];
}

_storedCounts& _storedCounts::operator+=(const _storedCounts& other) {
    pairs += other.pairs;
    for (std::size_t place = 0; place < verdictCount; ++place) verdicts[place] += other.verdicts[place];
    for (const auto& [reason, count] : other.reasons) reasons[reason] += count;
    return *this;
}

_storedCounts checkStoredValues(const vxN::_scene& scene, const vxN::_byteSource& source,
                                const std::function<void(const _checkedChannel&)>& tell) {
    return _check(scene, source).run(tell);
}

}  // namespace vxV
