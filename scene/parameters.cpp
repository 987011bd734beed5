#include "scene/parameters.h"

#include <algorithm>
#include <array>
#include <utility>

#include "scene/limits.h"
#include "scene/nameIndex.h"
#include "scene/textTokens.h"

namespace vxN {

namespace {

constexpr std::string_view locksMark = "locks=";
constexpr std::string_view drivenMark = "[ ";  ///< before a channel; a literal "[" has a tab behind it

/// Endings that name a parameter's components, in the order of the components.
constexpr std::array<std::array<std::string_view, 4>, 4> componentEndings{{
    {"x", "y", "z", "w"},
    {"r", "g", "b", "a"},
    {"u", "v", "w", ""},
    {"min", "max", "", ""},
}};

constexpr std::size_t longestNumber = 3;  ///< digits of a component's number

constexpr auto nameOf = [](const _parameter& parameter) { return parameter.name; };
constexpr auto channelOf = [](const _value& value) { return value.channel; };

/// True when the channels that drive components of this parameter have the names that `endingOf` gives.
template <typename Ending>
bool areNamedBy(const _parameter& parameter, Ending endingOf) {
    if (parameter.values.size() > mostComponents) return false;
    for (std::size_t i = 0; i < parameter.values.size(); ++i) {
        const std::string_view channel = parameter.values[i].channel;
        const bool fits = channel.starts_with(parameter.name) && endingOf(i) == channel.substr(parameter.name.size());
        if (!channel.empty() && !fits) return false;
    }
    return true;
}

std::string numberEnding(std::size_t place) {
    return std::to_string(place + 1);
}

bool isName(_token token) {
    return !token.isQuoted && token.text != "{" && token.text != "[";
}

}  // namespace

/// Reads the block of one node: "{ version 0.8", then name, "[ 0 attributes ]", "( values )" of each parameter, "}".
/// The blocks of a take follow it in the source.
class _parameterReader {
 public:
    explicit _parameterReader(_parameters& read) : into(read), tokens(read.source) {}

    /// @param ownBytes  of the source; what follows are the blocks of a take
    void readAll(std::size_t ownBytes) {
        const std::string_view source = into.source;
        tokens = _textTokens(source.substr(0, ownBytes));
        into.whole = ownBytes == 0 || readBlock();
        const std::size_t ownParameters = into.parameters.size();
        const std::size_t ownValues = into.values.size();
        tokens = _textTokens(source.substr(ownBytes));
        while (!tokens.rest().empty() && readBlock()) continue;
        for (std::size_t i = ownValues; i < into.values.size(); ++i) into.values[i].isOverride = true;
        setSpans();
        into.byName = indexByName(into.parameters, nameOf);
        putInPlace(ownParameters);
        for (const _parameter& parameter : into.parameters)
            for (const _value& value : parameter.values)
                if (value.isDriven()) into.byChannel.push_back(static_cast<quint32>(&value - into.values.data()));
        orderByName(into.byChannel, into.values, channelOf);
    }

 private:
    bool readBlock() {
        while (const auto token = tokens.next()) {
            if (token->is("}")) return true;
            if (isName(*token) && tokens.take("[") && !readParameter(token->text)) return false;
        }
        return false;
    }

    bool readParameter(std::string_view name) {
        if (into.parameters.size() >= mostParameters) return false;
        _parameter parameter{name, 0, {}};
        const bool hasAttributes = readAttributes(parameter);
        const bool isComplete = hasAttributes && (!tokens.take("(") || readValues());
        into.parameters.push_back(parameter);
        ends.push_back(into.values.size());
        return isComplete;
    }

    bool readAttributes(_parameter& parameter) {
        while (const auto token = tokens.next()) {
            if (token->is("]")) return true;
            if (token->text.starts_with(locksMark))
                parameter.locks = countIn(token->text.substr(locksMark.size())).value_or(0);
        }
        return false;
    }

    bool readValues() {
        while (!tokens.rest().empty()) {
            if (tokens.take(")")) return true;
            if (into.values.size() >= mostValues || !readValue()) return false;
        }
        return false;
    }

    bool readValue() {
        const bool isDriven = tokens.rest().starts_with(drivenMark);
        const std::string_view channel = isDriven ? readChannelName() : std::string_view();
        const auto token = tokens.next();
        if (!token) return false;
        const bool hasNoCache = isDriven && token->is("]") && !tokens.peekIs("]");
        const std::string_view text = hasNoCache ? std::string_view()
                                      : isDriven ? unescapedInner(*token, into.made)
                                                 : unescaped(token->text, into.made);
        into.values.push_back({text, channel, token->isQuoted});
        if (isDriven && !hasNoCache) tokens.take("]");
        return true;
    }

    std::string_view readChannelName() {
        tokens.take("[");
        const auto name = tokens.next();
        return name && !name->isQuoted ? name->text : std::string_view();
    }

    void setSpans() {
        std::size_t first = 0;
        for (std::size_t i = 0; i < ends.size(); ++i) {
            into.parameters[i].values = std::span(into.values).subspan(first, ends[i] - first);
            first = ends[i];
        }
    }

    /// What a take says goes where the node's own parameter of that name was.
    void putInPlace(std::size_t ownParameters) {
        if (ownParameters == into.parameters.size()) return;
        for (std::size_t i = 0; i < ownParameters; ++i) {
            const _parameter* const last = into.find(into.parameters[i].name);
            if (last >= into.parameters.data() + ownParameters) into.parameters[i] = *last;
        }
        into.parameters.resize(ownParameters);
        into.byName = indexByName(into.parameters, nameOf);
    }

    _parameters& into;
    _textTokens tokens;
    std::vector<std::size_t> ends;  ///< positions behind each parameter's values
};

std::string componentName(const _parameter& parameter, std::size_t place) {
    if (parameter.values[place].isDriven()) return std::string(parameter.values[place].channel);
    const std::string stem(parameter.name);
    if (parameter.values.size() == 1) return stem;
    if (parameter.values.size() > mostComponents) return {};
    const auto isDriven = [](const _value& value) { return value.isDriven(); };
    if (std::none_of(parameter.values.begin(), parameter.values.end(), isDriven)) return {};
    if (areNamedBy(parameter, numberEnding)) return stem + numberEnding(place);
    for (const auto& endings : componentEndings) {
        const auto endingOf = [&](std::size_t at) { return at < endings.size() ? endings[at] : std::string_view(); };
        if (!areNamedBy(parameter, endingOf) || endingOf(place).empty()) continue;
        return stem + std::string(endingOf(place));
    }
    return {};
}

_parameters::_parameters(std::string text, std::span<const std::string_view> overrides) : source(std::move(text)) {
    const std::size_t ownBytes = source.size();
    for (const std::string_view block : overrides) source.append("\n").append(block);
    _parameterReader(*this).readAll(ownBytes);
}

const _parameter* _parameters::find(std::string_view name) const {
    return findLast(parameters, byName, name, nameOf);
}

const _value* _parameters::component(std::string_view channel) const {
    if (channel.empty()) return nullptr;
    if (const _value* const driven = findLast(values, byChannel, channel, channelOf)) return driven;
    if (const _parameter* const own = find(channel); own != nullptr && own->values.size() == 1) return &own->values[0];
    if (const _value* const lettered = letteredComponent(channel)) return lettered;
    return numberedComponent(channel);
}

const _value* _parameters::letteredComponent(std::string_view channel) const {
    for (const auto& endings : componentEndings)
        for (std::size_t i = 0; i < endings.size() && !endings[i].empty(); ++i) {
            if (!channel.ends_with(endings[i])) continue;
            const _parameter* const parameter = find(channel.substr(0, channel.size() - endings[i].size()));
            const auto endingOf = [&](std::size_t at) {
                return at < endings.size() ? endings[at] : std::string_view();
            };
            if (parameter != nullptr && i < parameter->values.size() && areNamedBy(*parameter, endingOf))
                return &parameter->values[i];
        }
    return nullptr;
}

const _value* _parameters::numberedComponent(std::string_view channel) const {
    for (std::size_t digits = 1; digits <= std::min(longestNumber, channel.size()); ++digits) {
        const std::size_t stem = channel.size() - digits;
        const auto number = countIn(channel.substr(stem));
        if (!number || *number == 0 || channel[stem] == '0') continue;
        const _parameter* const parameter = find(channel.substr(0, stem));
        if (parameter != nullptr && *number <= parameter->values.size() && areNamedBy(*parameter, numberEnding))
            return &parameter->values[*number - 1];
    }
    return nullptr;
}

qint64 _parameters::bytes() const {
    return bytesOfText(source, made) + bytesOfItems(values) + bytesOfItems(parameters) + bytesOfItems(byName) +
           bytesOfItems(byChannel);
}

}  // namespace vxN
