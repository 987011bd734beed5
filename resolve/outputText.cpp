#include "resolve/outputText.h"

#include <algorithm>
#include <array>

#include "shared/vxEnvironment.h"

namespace vxP {

namespace {

/// Variables of the scene's place, which readers replace themselves.
constexpr std::array placeVariables{"HIP*", "JOB"};

/// Two frames whose numbers differ in every digit and in length.
constexpr int oneFrame = 7;
constexpr int otherFrame = 12;

std::string padded(int number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

/// Where two texts differ: the same beginning and end around it, without zeros that belong to a number.
struct _difference {
    std::size_t begin;
    std::size_t endOfOne;
    std::size_t endOfOther;
};

_difference differenceOf(const std::string& one, const std::string& other) {
    const auto shorter = std::min(one.size(), other.size());
    std::size_t begin = 0;
    while (begin < shorter && one[begin] == other[begin]) ++begin;
    std::size_t end = 0;
    while (end < shorter - begin && one[one.size() - 1 - end] == other[other.size() - 1 - end]) ++end;
    while (begin > 0 && one[begin - 1] == '0') --begin;
    return {begin, one.size() - end, other.size() - end};
}

/// The text with a frame variable where both hold their frame's number; empty where they do not.
std::string withFrameVariable(const std::string& one, const std::string& other) {
    const auto [begin, endOfOne, endOfOther] = differenceOf(one, other);
    const std::string numberOfOne = one.substr(begin, endOfOne - begin);
    const std::string numberOfOther = other.substr(begin, endOfOther - begin);
    const std::size_t width = numberOfOne.size() == numberOfOther.size() ? numberOfOne.size() : 1;
    if (width > 9 || numberOfOne != padded(oneFrame, width) || numberOfOther != padded(otherFrame, width)) return {};
    return one.substr(0, begin) + "$F" + (width > 1 ? std::to_string(width) : "") + one.substr(endOfOne);
}

vxV::_textOutcome textAt(int frame, vxV::_evaluator& evaluator, const vxN::_node& node, std::string_view text) {
    evaluator.setFrame(frame);
    return evaluator.expand(node, text);
}

}  // namespace

std::unique_ptr<vxV::_evaluator> sectionEvaluator(const vxN::_scene& scene, const vxN::_byteSource& source,
                                                  const std::string& sceneFile) {
    vxV::_options options;
    options.source = &source;
    options.sceneFile = sceneFile;
    options.keptVariables = vxV::outputVariables();
    options.keptVariables.insert(options.keptVariables.end(), placeVariables.begin(), placeVariables.end());
    for (const vxN::_sceneVariable& variable : scene.variables()) options.keptVariables.push_back(variable.name);
    options.keepsUnsetVariables = true;
    for (const vxS::_varValue& variable : vxS::vxGetEnvironmentVariableList(false))
        options.environment.push_back({variable.name.toStdString(), variable.value.toStdString()});
    return std::make_unique<vxV::_evaluator>(scene, std::move(options));
}

vxV::_textOutcome outputText(vxV::_evaluator& evaluator, const vxN::_node& node, std::string_view text) {
    vxV::_dependence dependence;
    const vxV::_textOutcome now = evaluator.expand(node, text, &dependence);
    if (!now || !dependence.time) return now;
    const double frame = evaluator.frame();
    const vxV::_textOutcome one = textAt(oneFrame, evaluator, node, text);
    const vxV::_textOutcome other = textAt(otherFrame, evaluator, node, text);
    evaluator.setFrame(frame);
    if (!one || !other) return now;
    if (*one == *other) return one;
    const std::string named = withFrameVariable(*one, *other);
    return named.empty() ? vxV::_textOutcome(vxV::unknown(vxV::_reason::uncertain, "frame")) : named;
}

}  // namespace vxP
