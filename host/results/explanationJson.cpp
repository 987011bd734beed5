#include "host/results/explanationJson.h"

#include <QJsonArray>

#include "host/results/jsonValues.h"

namespace vxH {
namespace {

template <typename Entry>
QJsonArray listOf(const QList<Entry>& entries, QJsonObject (*toJson)(const Entry&)) {
    QJsonArray list;
    for (const Entry& entry : entries) list.append(toJson(entry));
    return list;
}

QJsonArray textsOf(const QStringList& texts) {
    return QJsonArray::fromStringList(texts);
}

QJsonArray numbersOf(const QList<int>& numbers) {
    QJsonArray list;
    for (const int number : numbers) list.append(number);
    return list;
}

// ---- facts

QJsonObject variableToJson(const vxE::_variableFact& variable) {
    return {{QLatin1String{"name"}, variable.name},
            {QLatin1String{"value"}, variable.value},
            {QLatin1String{"from"}, variable.isImported ? QLatin1String{"environment"} : QLatin1String{"scene"}}};
}

QJsonObject cameraToJson(const vxE::_cameraFact& camera) {
    return {{QLatin1String{"node"}, camera.node},
            {QLatin1String{"width"}, camera.width},
            {QLatin1String{"height"}, camera.height},
            {QLatin1String{"stereo"}, camera.isStereo},
            {QLatin1String{"drivers"}, textsOf(camera.drivers)}};
}

QJsonObject lopToJson(const vxE::_lopFact& node) {
    return {{QLatin1String{"node"}, node.node},
            {QLatin1String{"image"}, node.image},
            {QLatin1String{"renderer"}, node.renderer},
            {QLatin1String{"drivers"}, textsOf(node.drivers)}};
}

QJsonObject settingsToJson(const vxE::_usdRenderSettingsFact& settings) {
    return {{QLatin1String{"node"}, settings.node},
            {QLatin1String{"camera"}, settings.camera},
            {QLatin1String{"image"}, settings.image},
            {QLatin1String{"archive"}, settings.isArchiveEnabled},
            {QLatin1String{"drivers"}, textsOf(settings.drivers)}};
}

QJsonObject channelToJson(const vxE::_wedgeChannelFact& channel) {
    return {{QLatin1String{"name"}, channel.name},
            {QLatin1String{"start"}, channel.start},
            {QLatin1String{"end"}, channel.end},
            {QLatin1String{"steps"}, channel.steps}};
}

QJsonObject wedgeToJson(const vxE::_wedgeFact& wedge) {
    return {{QLatin1String{"node"}, wedge.node},
            {QLatin1String{"driver"}, wedge.driver},
            {QLatin1String{"variants"}, wedge.variants},
            {QLatin1String{"channels"}, listOf(wedge.channels, channelToJson)}};
}

QJsonObject factsToJson(const vxE::_explainedFacts& facts) {
    return {{QLatin1String{"houdiniVersion"}, facts.houdiniVersion},
            {QLatin1String{"frameRange"}, QJsonObject{{QLatin1String{"start"}, facts.firstFrame},
                                                      {QLatin1String{"end"}, facts.lastFrame},
                                                      {QLatin1String{"step"}, facts.frameStep},
                                                      {QLatin1String{"stored"}, facts.isFrameRangeStored}}},
            {QLatin1String{"takes"}, textsOf(facts.takes)},
            {QLatin1String{"variableCount"}, facts.variableCount},
            {QLatin1String{"variables"}, listOf(facts.variables, variableToJson)},
            {QLatin1String{"cameras"}, listOf(facts.cameras, cameraToJson)},
            {QLatin1String{"lops"}, listOf(facts.lops, lopToJson)},
            {QLatin1String{"usdRenderSettings"}, listOf(facts.usdRenderSettings, settingsToJson)},
            {QLatin1String{"wedges"}, listOf(facts.wedges, wedgeToJson)}};
}

// ---- sections and warnings

QLatin1String nameOf(vxE::_outcomeKind kind) {
    switch (kind) {
        case vxE::_outcomeKind::none:
            return QLatin1String{"none"};
        case vxE::_outcomeKind::kept:
            return QLatin1String{"kept"};
        case vxE::_outcomeKind::jobs:
            return QLatin1String{"jobs"};
    }
    return {};
}

QJsonObject sectionToJson(const vxE::_explainedSection& section) {
    QJsonObject object{{QLatin1String{"reader"}, section.readerName},
                       {QLatin1String{"node"}, section.node},
                       {QLatin1String{"type"}, section.type},
                       {QLatin1String{"line"}, section.line},
                       {QLatin1String{"byte"}, section.byte},
                       {QLatin1String{"hasFrames"}, section.hasFrames},
                       {QLatin1String{"outcome"}, nameOf(section.outcome)},
                       {QLatin1String{"jobs"}, numbersOf(section.jobs)},
                       {QLatin1String{"copies"}, numbersOf(section.copies)},
                       {QLatin1String{"code"}, section.code},
                       {QLatin1String{"text"}, section.text},
                       {QLatin1String{"details"}, textsOf(section.details)}};
    if (!section.resolved.isEmpty()) object.insert(resolvedKey, jsonOf(section.resolved));
    return object;
}

QJsonObject unrecognisedToJson(const vxE::_unrecognisedSection& section) {
    return {{QLatin1String{"node"}, section.node}, {QLatin1String{"type"}, section.type},
            {QLatin1String{"line"}, section.line}, {QLatin1String{"byte"}, section.byte},
            {QLatin1String{"code"}, section.code}, {QLatin1String{"text"}, section.text}};
}

QJsonObject warningToJson(const vxE::_warning& warning) {
    return {{QLatin1String{"code"}, warning.code},
            {QLatin1String{"node"}, warning.node},
            {QLatin1String{"jobs"}, numbersOf(warning.jobs)},
            {QLatin1String{"text"}, warning.text}};
}

/// Empty where nothing was left out.
QJsonObject leftOutToJson(const vxE::_leftOut& leftOut) {
    QJsonObject counts;
    bool isAny = false;
    for (const auto& row : vxE::leftOutCounts) {
        counts.insert(row.name, leftOut.*row.count);
        isAny = isAny || leftOut.*row.count > 0;
    }
    return isAny ? counts : QJsonObject();
}

}  // namespace

QJsonObject explanationToJson(const vxE::_explanation& explanation) {
    if (!explanation.isSceneRead) return {};
    QJsonObject json{{factsKey, factsToJson(explanation.facts)},
                     {sectionsKey, listOf(explanation.sections, sectionToJson)},
                     {notRecognisedKey, listOf(explanation.notRecognised, unrecognisedToJson)},
                     {warningsKey, listOf(explanation.warnings, warningToJson)}};
    const QJsonObject leftOut = leftOutToJson(explanation.leftOut);
    if (!leftOut.isEmpty()) json.insert(leftOutKey, leftOut);
    return json;
}

}  // namespace vxH
