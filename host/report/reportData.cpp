#include "host/report/reportData.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "host/report/comparisons.h"
#include "host/results/explanationJson.h"
#include "host/results/jobCells.h"
#include "host/results/jobFrames.h"
#include "host/results/sceneJson.h"
#include "shared/vxString.h"

namespace vxH {
namespace {

constexpr QLatin1String jobsKey{"jobs"};
constexpr QLatin1String outcomeKey{"outcome"};

// Of a scene on its way.
constexpr QLatin1String shownKey{"shown"};
constexpr QLatin1String resultKey{"result"};

void addWaits(QJsonObject& row, const _job& job) {
    QJsonArray numbers;
    QJsonArray unknown;
    for (std::size_t i = 0; i < job.waitsFor.size(); ++i) {
        if (job.waitsFor[i] == noJob) {
            unknown.append(job.waitForPreIDs[i]);
        } else {
            numbers.append(job.waitsFor[i] + 1);
        }
    }
    if (!numbers.isEmpty()) row.insert(QLatin1String{"waitsFor"}, numbers);
    if (!unknown.isEmpty()) row.insert(QLatin1String{"waitsForIDs"}, unknown);
}

/// Numbers to draw and sort by, how many frames they are, and what is wrong with them.
void addFrames(QJsonObject& row, const _job& job) {
    const auto count = frameCount(job);
    if (count.has_value()) row.insert(QLatin1String{"frameCount"}, *count);
    const auto fault = frameFault(job);
    if (!fault.isEmpty()) row.insert(QLatin1String{"fault"}, fault);
    if (!job.seqFrameSet.isEmpty()) return;
    if (std::isfinite(job.seqStart)) row.insert(QLatin1String{"start"}, job.seqStart);
    if (std::isfinite(job.seqEnd)) row.insert(QLatin1String{"end"}, job.seqEnd);
    if (job.seqStep != 1) row.insert(QLatin1String{"step"}, job.seqStep);
}

QJsonObject jobRow(const _job& job, const QString& scene) {
    const std::pair<QLatin1String, QString> cells[] = {
        {QLatin1String{"driver"}, job.layer},       {QLatin1String{"renderer"}, rendererCell(job)},
        {QLatin1String{"frames"}, framesCell(job)}, {QLatin1String{"output"}, outputCell(job, scene)},
        {QLatin1String{"camera"}, job.camera},      {QLatin1String{"take"}, job.channel},
        {QLatin1String{"size"}, sizeCell(job)}};
    QJsonObject row;
    for (const auto& [name, text] : cells) {
        if (!text.isEmpty()) row.insert(name, text);
    }
    addFrames(row, job);
    addWaits(row, job);
    return row;
}

constexpr vxS::_size longestMissing = 2000;  // characters of what is missing, of a job

QJsonObject filesRow(const _jobFilesThere& files) {
    QJsonObject row{{QLatin1String{"there"}, files.present}, {QLatin1String{"of"}, files.files}};
    if (files.unknown > 0) row.insert(QLatin1String{"unknown"}, files.unknown);
    const QString missing = files.missing.join(QLatin1Char('\n'));
    const bool isCut = missing.size() > longestMissing;
    if (!missing.isEmpty())
        row.insert(QLatin1String{"missing"}, isCut ? missing.left(longestMissing) + QLatin1String(" ...") : missing);
    return row;
}

QJsonArray jobRows(const _explainedScene& scene, const std::optional<_diskQuestion>& question) {
    const auto files = question ? filesThereByJob(sceneFilesOf(scene, question)) : std::vector<_jobFilesThere>{};
    QJsonArray rows;
    for (std::size_t i = 0; i < scene.jobs.size(); ++i) {
        auto row = jobRow(scene.jobs[i], scene.scene);
        if (i < files.size()) row.insert(QLatin1String{"files"}, filesRow(files[i]));
        rows.append(row);
    }
    return rows;
}

bool isEmpty(const QJsonValue& value) {
    return value.toString(QStringLiteral("-")).isEmpty() || (value.isArray() && value.toArray().isEmpty());
}

/// The members that hold something, of those named.
template <std::size_t Count>
QJsonObject membersOf(const QJsonObject& object, const QLatin1String (&names)[Count]) {
    QJsonObject kept;
    for (const auto& name : names) {
        const auto value = object[name];
        if (!value.isUndefined() && !isEmpty(value)) kept.insert(name, value);
    }
    return kept;
}

template <std::size_t Count>
void addEntries(QJsonArray& kept, const QJsonArray& entries, const QLatin1String (&names)[Count]) {
    for (const auto& entry : entries) kept.append(membersOf(entry.toObject(), names));
}

constexpr QLatin1String shownOfFacts[] = {
    QLatin1String{"houdiniVersion"},   QLatin1String{"frameRange"}, QLatin1String{"takes"},
    QLatin1String{"cameras"},          QLatin1String{"wedges"},     QLatin1String{"lops"},
    QLatin1String{"usdRenderSettings"}};
constexpr QLatin1String shownOfSection[] = {QLatin1String{"node"}, QLatin1String{"reader"}, QLatin1String{"line"},
                                            QLatin1String{"byte"}, QLatin1String{"text"},   QLatin1String{"details"}};
constexpr QLatin1String shownOfWarning[] = {QLatin1String{"node"}, QLatin1String{"jobs"}, QLatin1String{"text"}};

/// The name, the value and, where it is not the scene, the source of each variable: they are a third of all facts.
QJsonArray variableRows(const QList<vxE::_variableFact>& variables) {
    QJsonArray rows;
    for (const auto& variable : variables) {
        QJsonArray row{variable.name, variable.value};
        if (variable.isImported) row.append(QLatin1String{"environment"});
        rows.append(row);
    }
    return rows;
}

/// What the page shows of the explanation.
void addExplanation(QJsonObject& shown, vxE::_explanation explanation) {
    auto& sections = explanation.sections;
    sections.erase(std::remove_if(sections.begin(), sections.end(), std::not_fn(isSkippedDriver)), sections.end());
    const auto variables = variableRows(explanation.facts.variables);
    const auto object = explanationToJson(explanation);
    auto facts = membersOf(object[factsKey].toObject(), shownOfFacts);
    if (!variables.isEmpty()) facts.insert(QLatin1String{"variables"}, variables);
    QJsonArray skipped;
    for (const auto& key : {sectionsKey, notRecognisedKey}) addEntries(skipped, object[key].toArray(), shownOfSection);
    QJsonArray warnings;
    addEntries(warnings, object[warningsKey].toArray(), shownOfWarning);
    shown.insert(factsKey, facts);
    shown.insert(warningsKey, warnings);
    shown.insert(QLatin1String{"skipped"}, skipped);
}

}  // namespace

_reportScene reportScene(const _explainedScene& scene, const std::optional<_diskQuestion>& question) {
    auto shown = headToJson(scene);
    shown.insert(jobsKey, jobRows(scene, question));
    if (!scene.knowsItsJobs())
        shown.insert(outcomeKey, QLatin1String{"failed"});
    else if (scene.jobs.empty())
        shown.insert(outcomeKey, QLatin1String{"no jobs"});
    if (scene.explanation.isSceneRead) addExplanation(shown, scene.explanation);
    return {shown, scene};
}

QByteArray toBytes(const _reportScene& scene) {
    return QJsonDocument(QJsonObject{{shownKey, scene.shown}, {resultKey, sceneToJson(scene.result)}})
        .toJson(QJsonDocument::Compact);
}

_reportScene reportSceneFromBytes(const QByteArray& bytes) {
    const auto object = QJsonDocument::fromJson(bytes).object();
    return {object[shownKey].toObject(), sceneFromJson(object[resultKey].toObject())};
}

QJsonObject reportData(const std::vector<_reportScene>& scenes, const _reportOrigin& origin) {
    QJsonArray shown;
    std::vector<const _sceneResult*> results;
    for (const auto& scene : scenes) {
        shown.append(scene.shown);
        results.push_back(&scene.result);
    }
    return {{QLatin1String{"program"}, origin.program},
            {QLatin1String{"made"}, origin.made.toUTC().toString(Qt::ISODate)},
            {QLatin1String{"asksToCompare"}, origin.asksToCompare},
            {QLatin1String{"scenes"}, shown},
            {QLatin1String{"comparisons"}, comparisons(results, origin.asksToCompare)}};
}

}  // namespace vxH
