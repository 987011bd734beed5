// Computes channels and texts, each once.
#include "evaluate/evaluation.h"

#include <algorithm>

#include "evaluate/interpreter.h"
#include "evaluate/keys.h"
#include "evaluate/nodeSurroundings.h"
#include "evaluate/pythonScript.h"

namespace vxV {

namespace {

/// What a result or a node of a tree takes in memory besides its texts, roughly.
constexpr std::size_t bytesAroundResult = 200;
constexpr std::size_t bytesForExpressionByte = 80;

/// Menus and toggles are stored as quoted words, texts without quotes where they are one word.
bool isToken(const vxN::_value& stored) {
    return stored.isQuoted && !stored.text.empty() && stored.text.find(' ') == std::string_view::npos;
}

/// A number as it is written, where its text is certain.
_valueOutcome literalText(std::string_view written, double number) {
    const _textOutcome digits = textOf(number);
    return digits ? _valueOutcome(_value(std::string(written))) : _valueOutcome(digits.why());
}

}  // namespace

_evaluation::_evaluation(const vxN::_scene& ofScene, _options with)
    : scene(ofScene), options(std::move(with)), menus(options.source) {
    const vxN::_timeline& timeline = scene.timeline();
    clock = {timeline.fps, {}, timeline.globalRange, timeline.frameRange, timeline.frameStep};
    clock.frame = options.frame;
    if (!clock.frame && timeline.currentTime) clock.frame = clock.frameAt(*timeline.currentTime);
}

void _evaluation::forgetValues() {
    results.clear();
    resultBytes = 0;
}

void _evaluation::forgetTooMuch() {
    if (resultBytes > mostKeptResults) forgetValues();
    if (treeBytes > mostKeptExpressions) {
        trees.clear();
        treeBytes = 0;
    }
}

template <typename Work>
_valueOutcome _evaluation::remembered(_key key, Work work) {
    const auto [place, isNew] = results.try_emplace(std::move(key));
    if (!isNew) {
        current |= place->second.dependence;
        if (place->second.outcome) return *place->second.outcome;
        effort.isCut = true;
        return unknown(_reason::cycle, std::get<std::string>(place->first));
    }
    const _dependence around = std::exchange(current, {});
    const bool wasCut = std::exchange(effort.isCut, false);
    _valueOutcome outcome = unknown(_reason::cycle);
    try {
        outcome = work();
    } catch (...) {
        results.erase(place);
        throw;
    }
    const bool isOfThisWay = effort.isCut && effort.depth > 0 && !outcome;
    if (isOfThisWay) {
        results.erase(place);
    } else {
        place->second = {outcome, current};
        resultBytes += bytesAroundResult + std::get<std::string>(place->first).size();
        if (outcome && std::holds_alternative<std::string>(*outcome))
            resultBytes += std::get<std::string>(*outcome).size();
    }
    current |= around;
    effort.isCut |= wasCut;
    return outcome;
}

_valueOutcome _evaluation::channelValue(const vxN::_node& node, std::string_view channel, double frame) {
    const auto driver = node.channel(channel);
    if (driver == nullptr) return unknown(_reason::missingParameter, std::string(channel));
    return remembered({node.index(), _asked::value, frame, std::string(channel)},
                      [&] { return computeChannel(node, *driver, frame); });
}

_numberOutcome _evaluation::number(const vxN::_node& node, std::string_view channel, double frame) {
    if (node.channel(channel) != nullptr) {
        const _valueOutcome value = channelValue(node, channel, frame);
        return value ? numberOf(*value) : _numberOutcome(value.why());
    }
    const auto stored = node.component(channel);
    if (stored == nullptr || stored->isDriven()) return unknown(_reason::missingParameter, std::string(channel));
    if (stored->isRandom) return unknown(_reason::random, std::string(channel));
    double literal = 0;
    if (!stored->isQuoted && readNumber(stored->text, literal)) return literal;
    if (!isToken(*stored)) return unknown(_reason::notANumber, std::string(stored->text));
    const auto place = menus.numberOf(node, channel, stored->text);
    return place ? _numberOutcome(*place) : _numberOutcome(unknown(_reason::menuOrder, std::string(channel)));
}

_textOutcome _evaluation::text(const vxN::_node& node, std::string_view parameter, double frame) {
    const _valueOutcome value = remembered({node.index(), _asked::text, frame, std::string(parameter)},
                                           [&] { return computeText(node, parameter, frame); });
    return value ? textOf(*value) : _textOutcome(value.why());
}

_valueOutcome _evaluation::computeText(const vxN::_node& node, std::string_view parameter, double frame) {
    if (node.channel(parameter) != nullptr) {
        const _valueOutcome value = channelValue(node, parameter, frame);
        const auto* const number = value ? std::get_if<double>(&*value) : nullptr;
        const auto token = number != nullptr ? menus.tokenOf(node, parameter, *number) : std::nullopt;
        if (token) return _value(*token);
        return value ? asValue(textOf(*value)) : value;
    }
    const auto stored = node.component(parameter);
    if (stored == nullptr || stored->isDriven()) return unknown(_reason::missingParameter, std::string(parameter));
    if (stored->isRandom) return unknown(_reason::random, std::string(parameter));
    double number = 0;
    if (!stored->isQuoted && readNumber(stored->text, number)) return literalText(stored->text, number);
    return asValue(expand(node, stored->text, frame));
}

_valueOutcome _evaluation::computeChannel(const vxN::_node& node, const vxN::_channel& channel, double frame) {
    const auto expressionAt = [&](const vxN::_segment& segment, double at) -> _valueOutcome {
        if (languageOf(node, segment) == "python") return computePython(node, segment.expression, at);
        return computeExpression(node, segment.expression, at);
    };
    if (channel.isExpression()) return expressionAt(channel.segments[0], frame);
    _clock then = clock;
    then.frame = frame;
    const auto seconds = then.time();
    if (!seconds) return unknown(_reason::unsetVariable, "FPS");
    current.time |= channel.segments.size() > 1;
    return channelAtTime(channel, *seconds, [&](const vxN::_segment& segment, double at) {
        return expressionAt(segment, *then.frameAt(at));
    });
}

_outcome<_tree> _evaluation::treeOf(std::string_view expression) {
    const auto found = trees.find(std::string(expression));
    if (found != trees.end()) return found->second;
    treeBytes += expression.size() * bytesForExpressionByte;
    return trees.emplace(expression, readExpression(expression)).first->second;
}

_valueOutcome _evaluation::computeExpression(const vxN::_node& node, std::string_view expression, double frame) {
    const _outcome<_tree> tree = treeOf(expression);
    if (!tree) return tree.why();
    _nodeSurroundings surroundings(*this, node, frame);
    return evaluateExpression(**tree, surroundings);
}

_valueOutcome _evaluation::computePython(const vxN::_node& node, std::string_view script, double frame) {
    _nodeSurroundings surroundings(*this, node, frame);
    return evaluatePython(script, surroundings);
}

_textOutcome _evaluation::expand(const vxN::_node& node, std::string_view text, double frame) {
    return expandText(text, {[&](const _variableUse& use) { return variableText(node, use, frame); },
                             [&](std::string_view expression) -> _textOutcome {
                                 const _valueOutcome value = computeExpression(node, expression, frame);
                                 return value ? textOf(*value) : _textOutcome(value.why());
                             }});
}

}  // namespace vxV
