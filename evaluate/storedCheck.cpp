// Compares channels with their stored values.
#include "evaluate/storedCheck.h"

#include <algorithm>
#include <cmath>

namespace vxV {

namespace {

constexpr std::array<std::string_view, 2> switchWords{"off", "on"};
/// Stored numbers may have gone through 32-bit floats.
constexpr double tolerance = 1e-5;
constexpr double mostFrames = 2000;

constexpr std::array verdictNames{
    QLatin1String("agrees"),  QLatin1String("other frame"), QLatin1String("never evaluated"),
    QLatin1String("stamped"), QLatin1String("differs"),     QLatin1String("unknown"),
};
static_assert(verdictNames.size() == verdictCount);

bool isNear(double a, double b) {
    return std::fabs(a - b) <= tolerance * std::max({1.0, std::fabs(a), std::fabs(b)});
}

/// A stored number; of a switch 0 or 1.
bool storedNumber(const vxN::_value& stored, double& number) {
    const auto word = std::find(switchWords.begin(), switchWords.end(), stored.text);
    if (word != switchWords.end()) {
        number = static_cast<double>(word - switchWords.begin());
        return true;
    }
    return readNumber(stored.text, number);
}

bool agrees(const vxN::_value& stored, const _value& computed) {
    if (const auto* const text = std::get_if<std::string>(&computed); text != nullptr && *text == stored.text) return true;
    const _numberOutcome number = numberOf(computed);
    double before = 0;
    return number && storedNumber(stored, before) && isNear(*number, before);
}

/// The stored value is what a channel has before anything evaluates it: 0, its expression, or what the parameter had
/// before there was a channel.
bool isUntouched(const vxN::_value& stored, const vxN::_channel& channel) {
    if (stored.text == channel.segments.front().expression) return true;
    if (channel.defaultText && !stored.text.empty() && stored.text == *channel.defaultText) return true;
    double number = 0;
    if (!storedNumber(stored, number)) return false;
    return number == 0 || (channel.defaultNumber && isNear(number, *channel.defaultNumber));
}

class _check {
 public:
    _check(const vxN::_scene& ofScene, const std::function<void(const _checkedChannel&)>& telling)
        : scene(ofScene), tell(telling), evaluator(ofScene, withStoredPlace()) {}

    _storedCounts run();

 private:
    static _options withStoredPlace();
    void checkNode(const vxN::_node& node);
    _verdict verdictOn(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored,
                       const _valueOutcome& computed, const _dependence& dependence);
    bool agreesAtOtherFrame(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored);
    vxN::_range frames() const;

    const vxN::_scene& scene;
    const std::function<void(const _checkedChannel&)>& tell;
    _evaluator evaluator;
    _storedCounts counts;
};

_options _check::withStoredPlace() {
    _options options;
    options.storedPlace = true;
    return options;
}

_storedCounts _check::run() {
    for (qint32 index = 0; index < scene.nodeCount(); ++index) checkNode(scene.node(index));
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
        ++counts.pairs;
        ++counts.verdicts[static_cast<std::size_t>(verdict)];
        if (!computed) ++counts.reasons[computed.why().reason];
        if (tell) {
            tell({node, channel.name, channel.segments.front().expression, stored->text, computed, verdict});
        }
    }
}

_verdict _check::verdictOn(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored,
                           const _valueOutcome& computed, const _dependence& dependence) {
    if (!computed) return _verdict::unknown;
    if (agrees(stored, *computed)) return _verdict::agrees;
    if (isUntouched(stored, channel)) return _verdict::neverEvaluated;
    if (dependence.stamp) return _verdict::stamped;
    if (dependence.time && agreesAtOtherFrame(node, channel, stored)) return _verdict::otherFrame;
    return _verdict::differs;
}

vxN::_range _check::frames() const {
    const vxN::_timeline& timeline = scene.timeline();
    vxN::_range frames = timeline.frameRange.value_or(vxN::_range{1, 1});
    if (timeline.globalRange && timeline.fps) {
        frames.first = std::min(frames.first, timeline.globalRange->first * *timeline.fps + 1);
        frames.last = std::max(frames.last, timeline.globalRange->last * *timeline.fps);
    }
    frames.first = std::round(std::min(frames.first, 1.0));
    frames.last = std::min(std::round(frames.last), frames.first + mostFrames);
    return frames;
}

bool _check::agreesAtOtherFrame(const vxN::_node& node, const vxN::_channel& channel, const vxN::_value& stored) {
    const auto saved = evaluator.clock().frame;
    const vxN::_range all = frames();
    bool found = false;
    for (double frame = all.first; frame <= all.last && !found; ++frame) {
        evaluator.setFrame(frame);
        const _valueOutcome computed = evaluator.channelValue(node, channel.name);
        found = computed && agrees(stored, *computed);
    }
    if (saved) evaluator.setFrame(*saved);
    return found;
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

_storedCounts checkStoredValues(const vxN::_scene& scene, const std::function<void(const _checkedChannel&)>& tell) {
    return _check(scene, tell).run();
}

}  // namespace vxV
