// Functions that ask the scene: channels, parameters, nodes.
#include <algorithm>
#include <array>
#include <cmath>

#include "evaluate/functions.h"
#include "evaluate/tokens.h"

namespace vxV {

namespace {

constexpr double mostInputs = 10'000;

std::string nameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

_valueOutcome nodeName(const _call& call) {
    const _textOutcome path = call.surroundings.nodePath(call.text(0));
    return path ? _valueOutcome(_value(nameOf(*path))) : _valueOutcome(path.why());
}

/// The last run of digits in a node's name.
_valueOutcome nodeDigits(const _call& call) {
    const _textOutcome path = call.surroundings.nodePathNearby(call.text(0));
    if (!path) return path.why();
    const std::string name = nameOf(*path);
    const auto end = std::find_if(name.rbegin(), name.rend(), isDigit);
    const auto begin = std::find_if_not(end, name.rend(), isDigit);
    double number = 0;
    if (!readNumber(std::string(begin.base(), end.base()), number)) return unknown(_reason::uncertain, name);
    return _value(number);
}

_textOutcome inputOf(const _call& call) {
    const double input = call.number(1);
    if (input < 0 || input > mostInputs || std::floor(input) != input) {
        return unknown(_reason::uncertain, "number of an input");
    }
    return call.surroundings.inputPath(call.text(0), static_cast<int>(input));
}

_valueOutcome inputName(const _call& call) {
    const _textOutcome path = inputOf(call);
    return path ? _valueOutcome(_value(nameOf(*path))) : _valueOutcome(path.why());
}

_valueOutcome inputCount(const _call& call) {
    const _outcome<int> count = call.surroundings.inputCount(call.text(0));
    return count ? _valueOutcome(_value(static_cast<double>(*count))) : _valueOutcome(count.why());
}

_valueOutcome exists(const _call& call) {
    const _outcome<bool> there = call.surroundings.hasNode(call.text(0));
    return there ? _valueOutcome(_value(*there ? 1.0 : 0.0)) : _valueOutcome(there.why());
}

/// At a time in seconds.
_valueOutcome channelAtTime(const _call& call) {
    const _valueOutcome fps = call.surroundings.variable("FPS");
    const _numberOutcome rate = fps ? numberOf(*fps) : _numberOutcome(fps.why());
    return rate ? asValue(call.surroundings.channelAt(call.text(0), call.number(1) * *rate + 1)) : rate.why();
}

/// A parameter where there is one, else the second argument.
_valueOutcome property(const _call& call) {
    const _outcome<bool> there = call.surroundings.hasParameter(call.text(0));
    if (!there) return there.why();
    return *there ? asValue(call.surroundings.channel(call.text(0))) : _valueOutcome(call.arguments[1]);
}

/// What a copying stamps is not in the scene; outside of one the last argument counts.
_valueOutcome stamp(const _call& call) {
    call.surroundings.noteStamp();
    return call.arguments[2];
}

using _in = const _call&;

constexpr std::array functions{
    _function{"ch", "t", [](_in c) { return asValue(c.surroundings.channel(c.text(0))); }},
    _function{"chf", "tn", [](_in c) { return asValue(c.surroundings.channelAt(c.text(0), c.number(1))); }},
    _function{"chs", "t", [](_in c) { return asValue(c.surroundings.parameterText(c.text(0))); }},
    _function{"chsop", "t", [](_in c) { return asValue(c.surroundings.nodeOfParameter(c.text(0))); }},
    _function{"chsraw", "t", [](_in c) { return asValue(c.surroundings.rawParameterText(c.text(0))); }},
    _function{"cht", "tn", channelAtTime},
    _function{"opcreator", "t", [](_in c) { return asValue(c.surroundings.creatorPath(c.text(0))); }},
    _function{"opdigits", "t", nodeDigits},
    _function{"opexist", "t", exists},
    _function{"opfullpath", "t", [](_in c) { return asValue(c.surroundings.nodePath(c.text(0))); }},
    _function{"opinput", "tn", inputName},
    _function{"opinputpath", "tn", [](_in c) { return asValue(inputOf(c)); }},
    _function{"opname", "t", nodeName},
    _function{"opninputs", "t", inputCount},
    _function{"optype", "t", [](_in c) { return asValue(c.surroundings.nodeType(c.text(0))); }},
    _function{"property", "tn", property},
    _function{"stamp", "ttn", stamp},
    _function{"stamps", "ttt", stamp},
};

}  // namespace

std::span<const _function> sceneFunctions() {
    return functions;
}

}  // namespace vxV
