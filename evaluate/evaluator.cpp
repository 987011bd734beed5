#include "evaluate/evaluator.h"

#include "evaluate/evaluation.h"

namespace vxV {

std::string languageOf(const vxN::_node& node, const vxN::_segment& segment) {
    if (!segment.language.empty()) return std::string(segment.language);
    const auto definition = node.definition();
    return definition->expressionLanguage.empty() ? "hscript" : definition->expressionLanguage;
}

_evaluator::_evaluator(const vxN::_scene& scene, _options options)
    : evaluation(std::make_unique<_evaluation>(scene, std::move(options))) {
}

_evaluator::~_evaluator() = default;

double _evaluator::frame() const {
    constexpr double firstFrame = 1;
    return evaluation->clock.frame.value_or(firstFrame);
}

void _evaluator::setFrame(double frame) {
    evaluation->clock.frame = frame;
}

void _evaluator::forgetValues() {
    evaluation->forgetValues();
}

_numberOutcome _evaluator::number(const vxN::_node& node, std::string_view channel, _dependence* dependence) {
    return evaluation->begin(dependence, [&] { return evaluation->number(node, channel, frame()); });
}

_textOutcome _evaluator::text(const vxN::_node& node, std::string_view parameter, _dependence* dependence) {
    return evaluation->begin(dependence, [&] { return evaluation->text(node, parameter, frame()); });
}

_textOutcome _evaluator::expand(const vxN::_node& node, std::string_view text, _dependence* dependence) {
    return evaluation->begin(dependence, [&] { return evaluation->expand(node, text, frame()); });
}

_valueOutcome _evaluator::channelValue(const vxN::_node& node, std::string_view channel, _dependence* dependence) {
    return evaluation->begin(dependence, [&] { return evaluation->channelValue(node, channel, frame()); });
}

}  // namespace vxV
