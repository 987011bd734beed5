#include "explain/explainedLoad.h"

#include <QHash>

#include "explain/outcomes.h"
#include "explain/sceneFacts.h"
#include "explain/warnings.h"
#include "input/sceneFile.h"
#include "input/sceneForm.h"
#include "input/sectionKinds.h"
#include "plugin/sceneLoad.h"

namespace vxE {

namespace {

constexpr int longestLayer = decltype(vxJ::_JobBasics_largePath::layer)::capacity();

// ---- sections

using _jobNumbers = QList<int>;

/// Numbers of the jobs behind those of all sections, by driver.
QHash<QString, _jobNumbers> copiesByDriver(const _loadedScene& scene) {
    QHash<QString, _jobNumbers> copies;
    for (int i = scene.observation.jobsOfSections; i < scene.jobs.count; ++i)
        if (const auto* const job = scene.jobs.at(i)) copies[job->layer.toQString()].append(i + 1);
    return copies;
}

_jobNumbers jobsOf(const _observedSection& section) {
    _jobNumbers numbers;
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
        const bool isOfExport = i > section.jobsBefore;  // the first one may wait for other drivers
        if (isOfExport && job->waitForPreIDCount > 0) text += QLatin1String(" waits for it");
        texts.append(text);
    }
    return texts.join(QLatin1String(", "));
}

/// What is told of a section without jobs that came to something.
QString keptText(vxP::_sectionReader reader) {
    switch (reader) {
        case vxP::_sectionReader::wedge:
            return QStringLiteral("kept: its driver is repeated");
        case vxP::_sectionReader::camera:
            return QStringLiteral("kept as a camera");
        case vxP::_sectionReader::usdRenderSettings:
            return QStringLiteral("kept, but no driver refers to it");
        case vxP::_sectionReader::lop:
            return QStringLiteral("kept as a LOP node");
        case vxP::_sectionReader::driver:  // has jobs then
            break;
    }
    return {};
}

/// Kind, code and text.
void explainOutcome(const _observedSection& section, const _surveyedSection& surveyed, const vxJ::_JobBasicsArray& jobs,
                    _explainedSection& explained) {
    if (section.madeJobs()) {
        explained.outcome = _outcomeKind::jobs;
        explained.text = textOfJobs(section, jobs);
        return;
    }
    const _outcome outcome = surveyed.isOfDriver ? outcomeOfDriverTakenBy(section.reader) : outcomeOf(section);
    explained.outcome = outcome.code.isEmpty() ? _outcomeKind::kept : _outcomeKind::none;
    explained.code = outcome.code;
    explained.text = outcome.code.isEmpty() ? keptText(section.reader) : outcome.text;
}

QList<_explainedSection> explainedSections(const _loadedScene& scene) {
    const auto copies = copiesByDriver(scene);
    QList<_explainedSection> list;
    for (vxS::_size i = 0; i < scene.observation.sections.size(); ++i) {
        const _observedSection& section = scene.observation.sections[i];
        const _surveyedSection& surveyed = scene.survey.taken[i];
        _explainedSection explained{};
        explained.reader = section.reader;
        explained.readerName = vxP::sectionKindOf(section.reader).name;
        explained.node = section.node;
        explained.type = surveyed.type;
        explained.line = surveyed.line;
        explained.byte = section.byte;
        explained.hasFrames = section.hasFrames || surveyed.isOfDriver;
        explainOutcome(section, surveyed, scene.jobs, explained);
        explained.jobs = jobsOf(section);
        if (section.madeJobs()) explained.copies = copies.value(section.node.left(longestLayer));
        explained.details = detailsOf(section);
        if (surveyed.isOfDriver) explained.details.append(parameterText(surveyed.output));
        explained.resolved = section.resolved;
        list.append(explained);
    }
    return list;
}

// ---- what was left out

/// "left out of this explanation, ...: sections 12, warnings 3"; empty: nothing was
QString cutText(const _leftOut& leftOut) {
    QStringList texts;
    for (const _leftOutCount& row : leftOutCounts)
        if (leftOut.*row.count > 0) texts.append(row.name + QLatin1Char(' ') + QString::number(leftOut.*row.count));
    if (texts.isEmpty()) return {};
    return QLatin1String("left out of this explanation, which would grow too large: ") +
           texts.join(QLatin1String(", "));
}

QList<_warning> warningsOf(const _loadedScene& scene, bool isCut, _explanationBudget& budget, _leftOut& leftOut) {
    _warningList list(budget, leftOut);
    if (isCut) list.warnings.append({QStringLiteral("sceneCut"), {}, {}, sceneCutText.toString()});
    warnOfSections(scene, list);
    warnOfOutputs(scene, list);
    if (const QString text = cutText(leftOut); !text.isEmpty())
        list.warnings.append({QStringLiteral("explanationCut"), {}, {}, text});
    return list.warnings;
}

}  // namespace

qint32 loadExplained(vxP::_dataPARS_LoadSceneFile& load, _explanation& explanation, _explanationBudget budget,
                     _surveyBreadth breadth) {
    explanation = {};
    _sceneObservation observation(budget.sectionBytes);
    vxP::_sceneFacts facts;
    const qint32 result = vxP::loadScene(load, facts);
    if (result == vxP::resultCannotOpen || result == vxP::resultVersionMismatch) return result;
    observation.loadEnds();
    const _sceneSurvey survey = surveyScene(load.sceneFileName->toQString(), observation, budget, breadth);
    const bool isCut = vxP::formOf(vxP::_sceneFile(load.sceneFileName->toQString())).form == vxP::_sceneForm::cut;
    const _loadedScene scene{observation, survey, *load.jobArray, facts};
    _leftOut& leftOut = explanation.leftOut;
    leftOut.sections = observation.sectionsLeftOut;
    leftOut.details = observation.remarksLeftOut + survey.textsLeftOut;
    leftOut.notRecognised = survey.notTakenLeftOut;
    leftOut.bytes = survey.bytesLeftOut;
    explanation.isSceneRead = true;
    explanation.isResolved = facts.resolves;
    explanation.facts = explainedFacts(facts, observation.hasFrameRange, budget.factBytes, leftOut);
    explanation.sections = explainedSections(scene);
    explanation.notRecognised = survey.notTaken;
    explanation.warnings = warningsOf(scene, isCut, budget, leftOut);
    return result;
}

}  // namespace vxE
