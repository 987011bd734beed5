#include "scene/entryTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <string>
#include <utility>

#include "scan/scanBudget.h"
#include "scene/limits.h"
#include "scene/textTokens.h"

namespace vxN {

namespace {

constexpr char variableQuote = '\'';

std::string_view nextText(_textTokens& tokens) {
    const auto token = tokens.next();
    return token ? token->text : std::string_view();
}

std::optional<_range> nextRange(_textTokens& words) {
    const auto first = numberIn(nextText(words));
    const auto last = numberIn(nextText(words));
    return first && last ? std::optional(_range{*first, *last}) : std::nullopt;
}

bool isLineEnd(std::string_view text) {
    return text.empty() || text.front() == '\n' || text.starts_with("\r\n");
}

/// The value of a variable, which `text` begins with and loses: in quotes that end with their line, or a bare line.
std::string_view takeVariableValue(std::string_view& text) {
    if (!text.starts_with(variableQuote)) return trimmed(takeLine(text));
    std::size_t end = text.find(variableQuote, 1);
    while (end != std::string_view::npos && !isLineEnd(text.substr(end + 1))) end = text.find(variableQuote, end + 1);
    if (end == std::string_view::npos) return trimmed(takeLine(text).substr(1));
    const std::string_view value = text.substr(1, end - 1);
    text.remove_prefix(end + 1);
    return value;
}

/// The number behind an option of a command.
std::optional<double> nextOption(_textTokens& words, std::string_view option) {
    for (auto word = words.next(); word; word = words.next())
        if (word->is(option)) return numberIn(nextText(words));
    return {};
}

}  // namespace

_nodeInit parseNodeInit(std::string_view text) {
    _nodeInit init;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const std::size_t mark = std::min(line.find('='), line.size());
        const std::string_view key = trimmed(line.substr(0, mark));
        const std::string_view value = trimmed(line.substr(std::min(mark + 1, line.size())));
        if (key == "type") init.type = value;
        if (key == "matchesdef") init.matchesDefinition = value == "1";
    }
    return init;
}

std::vector<_multiparmLink> parseMultiparmLinks(std::string_view text) {
    std::vector<_multiparmLink> links;
    takeLine(text);
    while (!text.empty() && links.size() < mostParameters) {
        _textTokens words(takeLine(text));
        const std::string_view parameter = nextText(words);
        const std::string_view source = nextText(words);
        if (!source.empty()) links.push_back({std::string(parameter), std::string(source)});
    }
    return links;
}

_input parseDotInput(std::string_view text) {
    constexpr std::string_view mark = "\"input\":\"";
    const std::size_t found = text.find(mark);
    if (found == std::string_view::npos) return {};
    const std::string_view behind = text.substr(found + mark.size());
    _textTokens words(behind.substr(0, behind.find('"')));
    const std::string_view source = nextText(words);
    return makeInput(0, source, countIn(nextText(words)).value_or(0));
}

_timeline parseTimeline(std::string_view text) {
    _timeline timeline;
    while (!text.empty()) {
        _textTokens words(takeLine(text));
        const std::string_view key = nextText(words);
        if (key == "fps") timeline.fps = numberIn(nextText(words));
        if (key == "tcur") timeline.currentTime = numberIn(nextText(words));
        if (key == "tset") timeline.globalRange = nextRange(words);
        if (key == "frange") timeline.frameRange = nextRange(words);
        if (key == "fplayback") timeline.frameStep = nextOption(words, "-s");
    }
    if (timeline.fps && *timeline.fps <= 0) timeline.fps.reset();
    return timeline;
}

std::vector<_sceneVariable> parseVariables(std::string_view text) {
    std::vector<_sceneVariable> variables;
    while (!text.empty()) {
        _textTokens words(text);
        const bool isSet = words.take("set");
        const bool isGlobal = words.take("-g");
        const bool isLocal = !isGlobal && words.take("-l");
        const std::string_view name = isSet && (isGlobal || isLocal) ? nextText(words) : std::string_view();
        if (name.empty() || !words.take("=")) {
            takeLine(text);
            continue;
        }
        text = words.rest();
        _sceneVariable variable{std::string(name), std::string(takeVariableValue(text)), isGlobal};
        vxP::keepMemory(qint64{sizeof variable} +
                        static_cast<qint64>(variable.name.capacity() + variable.value.capacity()));
        variables.push_back(std::move(variable));
    }
    return variables;
}

std::vector<_contextOption> parseContextOptions(const std::string& text) {
    std::vector<_contextOption> options;
    const QJsonArray list = QJsonDocument::fromJson(QByteArray::fromStdString(text)).array();
    for (const auto& item : list) {
        const QJsonObject row = item.toObject();
        const QJsonValue value = row[QLatin1String("value")].toObject()[QLatin1String("value")];
        if (!value.isDouble() && !value.isString()) continue;
        const QString written = value.isString() ? value.toString() : QString::number(value.toDouble(), 'g', 17);
        _contextOption option{row[QLatin1String("name")].toString().toStdString(), written.toStdString(),
                              value.isDouble()};
        vxP::keepMemory(qint64{sizeof option} + static_cast<qint64>(option.name.capacity() + option.value.capacity()));
        options.push_back(std::move(option));
    }
    return options;
}

}  // namespace vxN
