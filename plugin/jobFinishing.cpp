#include "plugin/jobFinishing.h"

#include <algorithm>

#include "plugin/jobCopies.h"
#include "plugin/jobRules.h"
#include "plugin/submitterArguments.h"
#include "readers/scanState.h"

namespace vxP {

namespace {

constexpr QStringView noLocalSceneCopy{u" \"AllowLocalSceneCopy=0~0\""};
constexpr QStringView noSceneExistCheck{u" -NoSceneExistCheck "};

constexpr QLatin1String arnoldVersionVariable{"HtoA_KickVersion"};
constexpr QLatin1String jobVariable{"JOB"};

/// A switch of the submitter and the renderer whose version it gives.
struct _versionSwitch {
    QLatin1String name;
    vxRA::_RenderAppBasic _rendererVersions::*version;
};

constexpr std::array versionSwitches{
    _versionSwitch{QLatin1String{"-customRenVer_Arnold"}, &_rendererVersions::arnold},
    _versionSwitch{QLatin1String{"-customRenVer_Redshift"}, &_rendererVersions::redshift},
    _versionSwitch{QLatin1String{"-customRenVer_VRay"}, &_rendererVersions::vray},
    _versionSwitch{QLatin1String{"-customRenVer_prman"}, &_rendererVersions::renderman},
};

bool isCalled(const QString& text, QLatin1String name) {
    return text.compare(name, Qt::CaseInsensitive) == 0;
}

void forbidLocalSceneCopy(vxJ::_JobBasicsArray& jobs) {
    if (HIPFound_DisableLocalScene) jobs.message.append(noLocalSceneCopy);
}

/// The scene of a waiting job does not exist before the export has run.
void skipSceneCheck(vxJ::_JobBasicsArray& jobs) {
    if (mantraIFDJob) jobs.message.append(noSceneExistCheck);
}

/// Longest name first, so that a name goes before those that begin it; equal lengths keep their order.
void orderVariables() {
    std::stable_sort(hVariables.begin(), hVariables.end(),
                     [](const _namevalue& a, const _namevalue& b) { return a.name.size() > b.name.size(); });
}

void takeArnoldVersionOfScene(_rendererVersions& versions) {
    for (const _namevalue& variable : hVariables) {
        if (!isCalled(variable.name, arnoldVersionVariable)) continue;
        versions.arnold = rendererVersionOf(variable.value);
        return;
    }
}

/// A switch in last place has no version behind it and is ignored.
void takeVersionsOfSubmitter(const _submitterSettings& settings, _rendererVersions& versions) {
    const QStringList arguments = argumentsOf(settings);
    for (_size i = 0; i + 1 < arguments.size(); ++i)
        for (const auto& row : versionSwitches)
            if (isCalled(arguments.at(i), row.name)) versions.*row.version = rendererVersionOf(arguments.at(i + 1));
}

QStringList valuesOf(QLatin1String name) {
    QStringList values;
    for (const _namevalue& variable : hVariables)
        if (isCalled(variable.name, name)) values.append(variable.value);
    return values;
}

void completeJobs(_dataPARS_LoadSceneFile& load, const _sceneFacts& facts, const _rendererVersions& versions) {
    _sceneSummary scene{facts, versions, load.sceneFileName->toQString(), {}, valuesOf(jobVariable)};
    scene.houdini.versionMajor = facts.majorVersion;
    scene.houdini.setVersionMinor(facts.versionMinorText);
    _outputBefore before;
    for (qint32 i = 0; i < load.jobArray->count; ++i) {
        vxJ::_JobBasics_largePath* const job = load.jobArray->at(i);
        if (job == nullptr) return;
        completeJob(*job, scene, before);
    }
}

qint32 copyForTakes(const _sceneFacts& facts, _jobCopier& copier) {
    const bool severalTakes = facts.takeNames.size() >= 2 || facts.activeTakeUsed;
    return severalTakes ? copier.copyForTakes(facts.takeNames) : qint32{resultSuccess};
}

bool isNothingToRender(const vxJ::_JobBasicsArray& jobs) {
    return emptyNodesfound && jobs.count == 0;
}

}  // namespace

qint32 finishJobs(_dataPARS_LoadSceneFile& load, const _sceneFacts& facts) {
    vxJ::_JobBasicsArray& jobs = *load.jobArray;
    _rendererVersions versions;
    forbidLocalSceneCopy(jobs);
    skipSceneCheck(jobs);
    orderVariables();
    takeArnoldVersionOfScene(versions);
    takeVersionsOfSubmitter(*load.settings, versions);
    completeJobs(load, facts, versions);
    _jobCopier copier(jobs);
    if (const qint32 copied = copyForTakes(facts, copier); copied != resultSuccess) return copied;
    if (isNothingToRender(jobs)) return resultNoUsableOutput;
    return copier.copyForWedges();
}

}  // namespace vxP
