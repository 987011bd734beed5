#include "plugin/jobFinishing.h"

#include <algorithm>

#include "plugin/jobCopies.h"
#include "plugin/jobRules.h"
#include "plugin/submitterArguments.h"
#include "scan/scanState.h"

namespace vxP {

namespace {

constexpr QStringView noLocalSceneCopy{u" \"AllowLocalSceneCopy=0~0\""};
constexpr QStringView noSceneExistCheck{u" -NoSceneExistCheck "};

constexpr QStringView jobVariable{u"JOB"};

void forbidLocalSceneCopy(vxJ::_JobBasicsArray& jobs) {
    if (HIPFound_DisableLocalScene) jobs.message.append(noLocalSceneCopy);
}

/// The scene of a waiting job does not exist before the export has run.
void skipSceneCheck(vxJ::_JobBasicsArray& jobs) {
    if (mantraIFDJob) jobs.message.append(noSceneExistCheck);
}

void takeVersionsOfScene(_rendererVersions& versions) {
    for (std::size_t row = 0; row < renderers.size(); ++row) {
        if (renderers[row].versionVariable.isEmpty()) continue;
        const QStringList values = hVariables.valuesOf(renderers[row].versionVariable);
        if (!values.isEmpty()) versions[row] = rendererVersionOf(values.first());
    }
}

/// A switch in last place or in front of another one has no version after it and is ignored.
void takeVersionsOfSubmitter(const _submitterSettings& settings, _rendererVersions& versions) {
    const QStringList arguments = argumentsOf(settings);
    for (_size i = 0; i + 1 < arguments.size(); ++i) {
        const std::size_t row = rowOfVersionSwitch(arguments.at(i));
        const bool hasVersion = rowOfVersionSwitch(arguments.at(i + 1)) == renderers.size();
        if (row < renderers.size() && hasVersion) versions[row] = rendererVersionOf(arguments.at(i + 1));
    }
}

_sceneSummary summaryOf(const _dataPARS_LoadSceneFile& load, const _sceneFacts& facts,
                        const _rendererVersions& versions) {
    _sceneSummary scene{facts, versions, load.sceneFileName->toQString(), {}, hVariables.valuesOf(jobVariable)};
    scene.houdini.versionMajor = facts.majorVersion;
    scene.houdini.setVersionMinor(facts.versionMinorText);
    return scene;
}

void completeJobs(vxJ::_JobBasicsArray& jobs, const _sceneSummary& scene) {
    _outputBefore before;
    for (qint32 i = 0; i < jobs.count; ++i) {
        vxJ::_JobBasics_largePath* const job = jobs.at(i);
        if (job == nullptr) return;
        completeJob(*job, scene, before);
    }
}

void wireJobs(_jobWaits& waits, const _resolvedDrivers& drivers) {
    for (const _resolvedDriver& driver : drivers.withJobs) waits.wire(driver.firstJob, driver.before);
}

qint32 copyForTakes(const _sceneFacts& facts, _jobCopier& copier) {
    const bool severalTakes = facts.takes.lines >= 2 || facts.activeTakeUsed;
    return severalTakes ? copier.copyForTakes(facts.takes.names) : qint32{resultSuccess};
}

bool isNothingToRender(const vxJ::_JobBasicsArray& jobs) {
    return emptyNodesfound && jobs.count == 0;
}

}  // namespace

qint32 finishJobs(_dataPARS_LoadSceneFile& load, const _sceneFacts& facts, const _resolvedDrivers& drivers) {
    vxJ::_JobBasicsArray& jobs = *load.jobArray;
    _rendererVersions versions;
    forbidLocalSceneCopy(jobs);
    skipSceneCheck(jobs);
    hVariables.orderByLength();  // so that a name comes before those that it begins with
    takeVersionsOfScene(versions);
    takeVersionsOfSubmitter(*load.settings, versions);
    const _sceneSummary scene = summaryOf(load, facts, versions);
    completeJobs(jobs, scene);
    _jobWaits waits(jobs);
    wireJobs(waits, drivers);
    _layerJobs jobsInLayers(load, facts, drivers, [&](vxJ::_JobBasicsArray& taken) { completeJobs(taken, scene); });
    _jobCopier copier(jobs, waits, jobsInLayers);
    const bool knewOfExports = mantraIFDJob;
    const bool knewOfLocalFiles = HIPFound_DisableLocalScene;
    const qint32 copied = copyForTakes(facts, copier);
    if (!knewOfExports) skipSceneCheck(jobs);
    if (!knewOfLocalFiles) forbidLocalSceneCopy(jobs);
    if (copied != resultSuccess) return copied;
    if (isNothingToRender(jobs)) return resultNoUsableOutput;
    return copier.copyForWedges();
}

}  // namespace vxP
