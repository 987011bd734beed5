#include "evaluate/evaluator.h"

#include "evaluate/evaluation.h"

namespace vxV {

namespace {

constexpr double firstFrame = 1;

/// Of a scene that does not say where its time stands.
double frameOf(const _evaluation& evaluation) {
    return evaluation.clock.frame.value_or(firstFrame);
}

}  // namespace

_evaluator::_evaluator(const vxN::_scene& scene, _options options)
    : evaluation(std::make_unique<_evaluation>(scene, std::move(options))) {
}

_evaluator::~_evaluator() = default;

const _clock& _evaluator::clock() const {
    return evaluation->clock;
}

void _evaluator::setFrame(double frame) {
    evaluation->clock.frame = frame;
}

_numberOutcome _evaluator::number(const vxN::_node& node, std::string_view channel, _dependence* dependence) {
    return evaluation->begin(dependence, [&] { return evaluation->number(node, channel, frameOf(*evaluation)); });
}

_textOutcome _evaluator::text(const vxN::_node& node, std::string_view parameter, _dependence* dependence) {
    return evaluation->begin(dependence, [&] { return evaluation->text(node, parameter, frameOf(*evaluation)); });
}

_textOutcome _evaluator::expand(const vxN::_node& node, std::string_view text, _dependence* dependence) {
    return evaluation->begin(dependence, [&] { return evaluation->expand(node, text, frameOf(*evaluation)); });
}

_valueOutcome _evaluator::channelValue(const vxN::_node& node, std::string_view channel, _dependence* dependence) {
    return evaluation->begin(dependence, [&] { return evaluation->channelValue(node, channel, frameOf(*evaluation)); });
}

}  // namespace vxV
