#include "host/report/reportData.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cmath>
#include <functional>

#include "host/report/comparisons.h"
#include "host/results/explanationJson.h"
#include "host/results/jobCells.h"
#include "host/results/sceneJson.h"

namespace vxH {
namespace {

constexpr QLatin1String jobsKey{"jobs"};

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

void addRange(QJsonObject& row, const _job& job) {
    if (!job.seqFrameSet.isEmpty()) return;
    if (std::isfinite(job.seqStart)) row.insert(QLatin1String{"start"}, job.seqStart);
    if (std::isfinite(job.seqEnd)) row.insert(QLatin1String{"end"}, job.seqEnd);
    row.insert(QLatin1String{"step"}, job.seqStep);
}

QJsonObject jobRow(const _job& job, const QString& scene) {
    QJsonObject row{{QLatin1String{"driver"}, job.layer},       {QLatin1String{"renderer"}, rendererCell(job)},
                    {QLatin1String{"frames"}, framesCell(job)}, {QLatin1String{"output"}, outputCell(job, scene)},
                    {QLatin1String{"camera"}, job.camera},      {QLatin1String{"take"}, job.channel},
                    {QLatin1String{"size"}, sizeCell(job)}};
    addRange(row, job);
    addWaits(row, job);
    return row;
}

QJsonArray jobRows(const _sceneResult& scene) {
    QJsonArray rows;
    for (const auto& job : scene.jobs) rows.append(jobRow(job, scene.scene));
    return rows;
}

/// What the page shows of the explanation.
void addExplanation(QJsonObject& shown, vxE::_explanation explanation) {
    auto& sections = explanation.sections;
    sections.erase(std::remove_if(sections.begin(), sections.end(), std::not_fn(isSkippedDriver)), sections.end());
    const auto object = explanationToJson(explanation);
    auto skipped = object[sectionsKey].toArray();
    const auto notRecognised = object[notRecognisedKey].toArray();
    for (const auto& section : notRecognised) skipped.append(section);
    shown.insert(factsKey, object[factsKey]);
    shown.insert(warningsKey, object[warningsKey]);
    shown.insert(QLatin1String{"skipped"}, skipped);
}

}  // namespace

_reportScene reportScene(const _explainedScene& scene) {
    auto shown = headToJson(scene);
    shown.insert(jobsKey, jobRows(scene));
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

QJsonObject reportData(const std::vector<_reportScene>& scenes, const QString& program) {
    QJsonArray shown;
    std::vector<const _sceneResult*> results;
    for (const auto& scene : scenes) {
        shown.append(scene.shown);
        results.push_back(&scene.result);
    }
    return {{QLatin1String{"program"}, program},
            {QLatin1String{"scenes"}, shown},
            {QLatin1String{"comparisons"}, comparisons(results)}};
}

}  // namespace vxH
