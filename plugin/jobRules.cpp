#include "plugin/jobRules.h"

#include <array>

#include "catalogues/camList.h"
#include "grammar/paramSection.h"
#include "scan/scanBudget.h"
#include "scan/scanState.h"

namespace vxP {

namespace {

using vxJ::_JobBasics_largePath;

/// A job, and what it is completed from.
struct _visit {
    _JobBasics_largePath& job;
    const _sceneSummary& scene;
    const _outputBefore& before;
};

constexpr QLatin1String htoaRenderer{"HtoA"};
constexpr QLatin1String vrayPerFrame{"multifile"};
constexpr QLatin1String exportIFD{"createIFD"};
constexpr QLatin1String exportCompressedIFD{"createIFDzip"};
constexpr QLatin1String compressedExtension{".gz"};
constexpr int longestExtensionToCompress = 22;  ///< characters; a longer one has no room for ".gz"
constexpr QStringView exportMark{u"create"};

// ---- scene file of a render job: the sequence that the export job before it writes

enum class _frameNumber { always, unlessSingleFile };

/// Only a job that waits for exactly one other renders what that one writes.
void takeExportAsScene(const _visit& visit, _frameNumber frameNumber) {
    if (visit.job.waitForPreIDCount != 1) return;
    const bool numbered = frameNumber == _frameNumber::always || !visit.before.singleFile;
    const QString frame = numbered ? QStringLiteral("<FN%1>").arg(visit.before.imagePadding) : QString();
    visit.job.sceneName =
        QString(visit.before.imageDir + visit.before.imageFileName + frame + visit.before.imageExtension);
}

/// The text alone: assigned as a whole it would bring the bytes behind it, whatever they are, into the shared record.
void setMinorVersion(_JobBasics_largePath& job, const vxRA::_RenderAppBasic& version) {
    job.appVersionMinor = version.versionMinor.view();
}

void takeVersion(const _visit& visit, const vxRA::_RenderAppBasic& version) {
    if (version.versionMajor <= 0) return;
    visit.job.appVersionMajor = static_cast<qint16>(version.versionMajor);
    setMinorVersion(visit.job, version);
}

// ---- one rule an application

void completeHoudini(const _visit& visit) {
    visit.job.requiredLicenses = QString(appNameHoudini);
    visit.job.sceneName = visit.scene.sceneFileName;
}

void completeMantra(const _visit& visit) {
    visit.job.requiredLicenses = QString(appNameMantra);
    visit.job.appRenderer.clear();
    takeExportAsScene(visit, _frameNumber::always);
}

void completeUSD(const _visit& visit) {
    visit.job.requiredLicenses.clear();
    visit.job.appRenderer = QString(appNameHoudini_Archive);
    visit.job.appRendererVersion = visit.scene.facts.fullVersion;
    takeExportAsScene(visit, _frameNumber::unlessSingleFile);
}

void completeArnold(const _visit& visit) {
    visit.job.appRenderer = QString(htoaRenderer);
    takeVersion(visit, visit.scene.versions.arnold);
    takeExportAsScene(visit, _frameNumber::unlessSingleFile);
}

void completeRenderman(const _visit& visit) {
    takeVersion(visit, visit.scene.versions.renderman);
    takeExportAsScene(visit, _frameNumber::unlessSingleFile);
}

void completeRedshift(const _visit& visit) {
    takeVersion(visit, visit.scene.versions.redshift);
    takeExportAsScene(visit, _frameNumber::unlessSingleFile);
}

void completeVRay(const _visit& visit) {
    if (!visit.before.singleFile) visit.job.appRenderer = QString(vrayPerFrame);
    takeVersion(visit, visit.scene.versions.vray);
    takeExportAsScene(visit, _frameNumber::unlessSingleFile);
}

struct _applicationRule {
    QLatin1String app;
    void (*complete)(const _visit&);
};

constexpr std::array applicationRules{
    _applicationRule{appNameHoudini, completeHoudini},
    _applicationRule{appNameMantra, completeMantra},
    _applicationRule{appNameUSD, completeUSD},
    _applicationRule{appNameUSDsingle, completeUSD},
    _applicationRule{appNameArnold, completeArnold},
    _applicationRule{appNameArnold_singlefile, completeArnold},
    _applicationRule{appNameRenderman, completeRenderman},
    _applicationRule{appNameRedshift, completeRedshift},
    _applicationRule{appNameVRay, completeVRay},
};

// ---- what holds for every application

void setHoudiniFacts(const _visit& visit) {
    visit.job.appVersionMajor = static_cast<qint16>(visit.scene.houdini.versionMajor);
    setMinorVersion(visit.job, visit.scene.houdini);
    for (const QString& value : visit.scene.jobVariables) {
        spendWork(customDataCost);
        visit.job.sceneSettings.customDataSet_Str(QStringLiteral("HoudiniJob"), value);
    }
    const QString take = nodeActiveTakes.value(visit.job.layer);
    if (!take.isEmpty()) visit.job.channel = take;
}

void applyApplicationRule(const _visit& visit) {
    const QString app = visit.job.app.toQString();
    for (const auto& rule : applicationRules)
        if (app == rule.app) return rule.complete(visit);
}

void compressIFD(const _visit& visit) {
    if (!visit.scene.facts.compressedIFD || visit.job.appRenderer.toQString() != exportIFD) return;
    visit.job.appRenderer = QString(exportCompressedIFD);
    if (visit.job.imageExtension.length() <= longestExtensionToCompress)
        visit.job.imageExtension.append(QString(compressedExtension));
}

void takeCamera(const _visit& visit) {
    const qint32 index = camList.findCamIndexByRenderNode(visit.job.layer.toQString());
    if (index < 0) return;
    const _camNode& camera = camList.entries().at(index);
    visit.job.camera = camera.camName.toQString();
    if (!camera.isStereo || visit.job.appRenderer.contains(exportMark)) return;
    visit.job.imageFileName.append(u"<Stereo>");
    visit.job.imageStereoL = u"_left";
    visit.job.imageStereoR = u"_right";
}

_outputBefore outputOf(const _JobBasics_largePath& job) {
    return {job.imageDir.toQString(), job.imageFileName.toQString(), job.imageExtension.toQString(), job.imagePadding,
            job.imageSingleOutputFile};
}

}  // namespace

vxRA::_RenderAppBasic rendererVersionOf(const QString& text) {
    vxRA::_RenderAppBasic version;
    version.versionMajor = integerOf(textBefore(text, u'.'));
    version.setVersionMinor(textBefore(textBehind(text, u'.'), u'.'));
    return version;
}

void completeJob(_JobBasics_largePath& job, const _sceneSummary& scene, _outputBefore& before) {
    const _visit visit{job, scene, before};
    setHoudiniFacts(visit);
    applyApplicationRule(visit);
    compressIFD(visit);
    takeCamera(visit);
    before = outputOf(job);
}

}  // namespace vxP
