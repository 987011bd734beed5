#include "explain/explainedLoad.h"

#include <QHash>
#include <QJsonArray>
#include <array>
#include <set>

#include "explain/outcomes.h"
#include "explain/sceneFactsJson.h"
#include "explain/warnings.h"
#include "plugin/sceneLoad.h"

namespace vxE {

namespace {

constexpr int longestLayer = decltype(vxJ::_JobBasics_largePath::layer)::capacity();

/// By the numbers of `_sectionReader`.
constexpr std::array readerNames{QLatin1String{"wedge"}, QLatin1String{"camera"}, QLatin1String{"usdRenderSettings"},
                                 QLatin1String{"lop"}, QLatin1String{"driver"}};

/// What a catalogue keeps of a section, by the same numbers; a driver makes jobs.
constexpr std::array keptTexts{QLatin1String{"kept: its driver is repeated"}, QLatin1String{"kept as a camera"},
                               QLatin1String{"kept, but no driver refers to it"}, QLatin1String{"kept as a LOP node"},
                               QLatin1String{}};

/// The scene after its load, and what is looked up in it again and again.
struct _lookUp {
    explicit _lookUp(const _explainedScene& explainedScene);

    const _explainedScene& scene;
    QHash<qint64, qint64> lineAt;         ///< number of a section's line by its place
    QHash<QString, QJsonArray> copiesOf;  ///< numbers of the jobs behind those of all sections, by driver
};

_lookUp::_lookUp(const _explainedScene& explainedScene) : scene(explainedScene) {
    for (const _surveyedSection& section : scene.survey.sections) lineAt.insert(section.byte, section.line);
    const auto& sections = scene.observation.sections;
    for (int i = sections.isEmpty() ? 0 : sections.last().jobsAfter; i < scene.jobs.count; ++i)
        if (const auto* const job = scene.jobs.at(i)) copiesOf[job->layer.toQString()].append(i + 1);
}

QJsonArray numbersOf(const _observedSection& section) {
    QJsonArray numbers;
    for (int job = section.jobsBefore; job < section.jobsAfter; ++job) numbers.append(job + 1);
    return numbers;
}

/// "job 1 Houdini/createIFD, job 2 Mantra_StdA waits for it"
QString textOfJobs(const _observedSection& section, const vxJ::_JobBasicsArray& jobs) {
    QStringList texts;
    for (int i = section.jobsBefore; i < section.jobsAfter; ++i) {
        const auto* const job = jobs.at(i);
        if (job == nullptr) continue;
        QString text = QStringLiteral("job %1 %2").arg(QString::number(i + 1), job->app.toQString());
        if (!job->appRenderer.isEmpty()) text += QLatin1Char('/') + job->appRenderer.toQString();
        if (job->waitForPreIDCount > 0) text += QLatin1String(" waits for it");
        texts.append(text);
    }
    return texts.join(QLatin1String(", "));
}

QJsonObject sectionJson(const _observedSection& section, const _lookUp& lookUp) {
    const bool madeJobs = section.jobsAfter > section.jobsBefore;
    const auto reader = static_cast<std::size_t>(section.reader);
    _outcome outcome = outcomeOf(section);
    QLatin1String kind{"none"};
    if (madeJobs || outcome.code.isEmpty()) {
        kind = madeJobs ? QLatin1String{"jobs"} : QLatin1String{"kept"};
        outcome = {{}, madeJobs ? textOfJobs(section, lookUp.scene.jobs) : QString(keptTexts[reader])};
    }
    const QJsonArray copies = madeJobs ? lookUp.copiesOf.value(section.node.left(longestLayer)) : QJsonArray();
    return {{QStringLiteral("reader"), QString(readerNames[reader])},
            {QStringLiteral("node"), section.node},
            {QStringLiteral("line"), lookUp.lineAt.value(section.byte)},
            {QStringLiteral("byte"), section.byte},
            {QStringLiteral("hasFrames"), !section.frameRange.isEmpty()},
            {QStringLiteral("outcome"), QString(kind)},
            {QStringLiteral("jobs"), numbersOf(section)},
            {QStringLiteral("copies"), copies},
            {QStringLiteral("code"), outcome.code},
            {QStringLiteral("text"), outcome.text},
            {QStringLiteral("details"), QJsonArray::fromStringList(namesOf(section))}};
}

QJsonArray sectionsJson(const _lookUp& lookUp) {
    QJsonArray list;
    for (const _observedSection& section : lookUp.scene.observation.sections) list.append(sectionJson(section, lookUp));
    return list;
}

QJsonArray notRecognisedJson(const _explainedScene& scene) {
    std::set<qint64> taken;
    for (const _observedSection& section : scene.observation.sections) taken.insert(section.byte);
    QJsonArray list;
    for (const _surveyedSection& section : scene.survey.sections) {
        if (!section.looksLikeDriver() || scene.survey.isReader(section.node)) continue;
        if (taken.count(section.byte) > 0) continue;
        const _outcome reason = whyNotTaken(section);
        list.append(QJsonObject{{QStringLiteral("node"), section.node},
                                {QStringLiteral("type"), scene.survey.typeOf.value(section.node)},
                                {QStringLiteral("line"), section.line},
                                {QStringLiteral("byte"), section.byte},
                                {QStringLiteral("code"), reason.code},
                                {QStringLiteral("text"), reason.text}});
    }
    return list;
}

QJsonArray warningsJson(const _explainedScene& scene) {
    _warnings warnings;
    warnOfSections(scene, warnings);
    warnOfOutputs(scene, warnings);
    return warnings.toJson();
}

}  // namespace

qint32 loadExplained(vxP::_dataPARS_LoadSceneFile& load, QJsonObject& explanation) {
    _sceneObservation observation;
    vxP::_sceneFacts facts;
    const qint32 result = vxP::loadScene(load, facts);
    if (result == vxP::resultCannotOpen || result == vxP::resultVersionMismatch) return result;
    const _sceneSurvey survey = surveyScene(load.sceneFileName->toQString());
    const _explainedScene scene{observation, survey, *load.jobArray, facts};
    const _lookUp lookUp(scene);
    explanation = {{QStringLiteral("facts"), sceneFactsJson(facts, observation.frameRangeStored)},
                   {QStringLiteral("sections"), sectionsJson(lookUp)},
                   {QStringLiteral("notRecognised"), notRecognisedJson(scene)},
                   {QStringLiteral("warnings"), warningsJson(scene)}};
    return result;
}

}  // namespace vxE
