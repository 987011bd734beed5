// Finds the frame in a text by asking for other frames.
#include "evaluate/sequenceText.h"

#include <algorithm>
#include <optional>

namespace vxV {

namespace {

/// A frame of one digit shows the padding, a long one where the number is, and the third one proves both.
constexpr double shortFrame = 7;
constexpr double longFrame = 9'182'736;
constexpr double proofFrame = 4321;

/// A text with a number in it.
struct _numbered {
    std::string before;
    std::string behind;
    std::size_t width = 0;  ///< digits

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

_textOutcome sequenceText(_evaluator& evaluator, const std::function<_textOutcome(_dependence&)>& textNow) {
    _dependence dependence;
    const _textOutcome now = textNow(dependence);
    if (!now || !dependence.time) return now;
    const double frame = evaluator.frame();
    const auto textAt = [&](double other) {
        evaluator.setFrame(other);
        return textNow(dependence);
    };
    const _textOutcome longText = textAt(longFrame);
    const _textOutcome shortText = textAt(shortFrame);
    const _textOutcome proof = textAt(proofFrame);
    evaluator.setFrame(frame);
    const auto uncertain = [] { return _textOutcome(unknown(_reason::uncertain, "frame")); };
    if (!longText || !shortText || !proof) return uncertain();
    if (*longText == *now && *shortText == *now && *proof == *now) return now;
    const auto numbered = numberedText(*longText, *shortText);
    if (!numbered || numbered->at(shortFrame) != *shortText || numbered->at(proofFrame) != *proof) return uncertain();
    return numbered->before + "$F" + (numbered->width > 1 ? std::to_string(numbered->width) : "") + numbered->behind;
}

}  // namespace vxV
