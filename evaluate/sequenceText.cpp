// Finds the frame in a text by asking for other frames.
#include "evaluate/sequenceText.h"

#include <algorithm>
#include <optional>

namespace vxV {

namespace {

/// A frame of one digit shows the padding, a long one where the number stands, and the third one proves both.
constexpr double shortFrame = 7;
constexpr double longFrame = 9'182'736;
constexpr double proofFrame = 4321;

/// A text with a number in it.
struct _numbered {
    std::string before;
    std::string behind;
    std::size_t width;

    std::string at(double frame) const {
        const std::string digits = std::to_string(static_cast<long long>(frame));
        return before + std::string(width - std::min(width, digits.size()), '0') + digits + behind;
    }
};

std::optional<_numbered> numberedText(const std::string& withLong, const std::string& withShort) {
    const std::string digits = std::to_string(static_cast<long long>(longFrame));
    const std::size_t place = withLong.find(digits);
    if (place == std::string::npos) return {};
    _numbered made{withLong.substr(0, place), withLong.substr(place + digits.size()), 0};
    if (withShort.size() <= made.before.size() + made.behind.size()) return {};
    made.width = withShort.size() - made.before.size() - made.behind.size();
    return made;
}

}  // namespace

_textOutcome sequenceText(_evaluator& evaluator, const vxN::_node& node, std::string_view parameter, bool& changes) {
    _dependence dependence;
    const _textOutcome now = evaluator.text(node, parameter, &dependence);
    changes = now && dependence.time;
    if (!changes) return now;
    const double frame = evaluator.frame();
    const auto textAt = [&](double other) {
        evaluator.setFrame(other);
        return evaluator.text(node, parameter);
    };
    const _textOutcome longText = textAt(longFrame);
    const _textOutcome shortText = textAt(shortFrame);
    const _textOutcome proof = textAt(proofFrame);
    evaluator.setFrame(frame);
    if (!longText || !shortText || !proof) return now;
    const auto numbered = numberedText(*longText, *shortText);
    if (!numbered || numbered->at(shortFrame) != *shortText || numbered->at(proofFrame) != *proof ||
        numbered->at(frame) != *now) {
        changes = *longText != *now || *shortText != *now || *proof != *now;
        return now;
    }
    changes = false;
    return numbered->before + "$F" + (numbered->width > 1 ? std::to_string(numbered->width) : "") + numbered->behind;
}

}  // namespace vxV
