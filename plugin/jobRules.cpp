#include "plugin/jobRules.h"

#include <algorithm>
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

constexpr QStringView arnoldPlugin{u"HtoA"};
constexpr QStringView vrayPerFrame{u"multifile"};
constexpr QStringView exportCompressedIFD{u"createIFDzip"};
constexpr QStringView compressedExtension{u".gz"};
constexpr int longestExtensionToCompress = 22;  ///< characters; a longer one has no room for ".gz"
constexpr QStringView exportMark{u"create"};

/// The text alone: assigned as a whole it would copy the bytes after it, whatever they are, into the shared record.
void setMinorVersion(_JobBasics_largePath& job, const vxRA::_RenderAppBasic& version) {
    job.appVersionMinor = version.versionMinor.view();
}

// ---- a job that Houdini runs

void completeHoudini(const _visit& visit) {
    visit.job.requiredLicenses = appNameHoudini;
    visit.job.sceneName = visit.scene.sceneFileName;
}

// ---- a job that renders what the export job before it writes

void takeVersion(const _visit& visit, const vxRA::_RenderAppBasic& version) {
    if (version.versionMajor <= 0) return;
    visit.job.appVersionMajor = static_cast<qint16>(version.versionMajor);
    setMinorVersion(visit.job, version);
}

/// Only a job that waits for exactly one other renders what that one writes.
void takeExportAsScene(const _visit& visit, bool isNumbered) {
    if (visit.job.waitForPreIDCount != 1) return;
    const QString frame = isNumbered ? QStringLiteral("<FN%1>").arg(visit.before.imagePadding) : QString();
    visit.job.sceneName =
        QString(visit.before.imageDir + visit.before.imageFileName + frame + visit.before.imageExtension);
}

void completeMantra(const _visit& visit) {
    visit.job.requiredLicenses = rendererOf(_kind::mantra).application;
    visit.job.appRenderer.clear();
}

void completeUSD(const _visit& visit) {
    visit.job.requiredLicenses.clear();
    visit.job.appRenderer = appNameHoudini_Archive;
    visit.job.appRendererVersion = visit.scene.facts.fullVersion;
}

void completeArnold(const _visit& visit) {
    visit.job.appRenderer = arnoldPlugin;
}

void completeVRay(const _visit& visit) {
    if (!visit.before.singleFile) visit.job.appRenderer = vrayPerFrame;
}

/// What the jobs of one renderer get beyond version and scene.
struct _rendererRule {
    _kind kind;
    void (*complete)(const _visit&);
};

constexpr std::array rendererRules{
    _rendererRule{_kind::mantra, completeMantra},
    _rendererRule{_kind::lop, completeUSD},
    _rendererRule{_kind::arnold, completeArnold},
    _rendererRule{_kind::vray, completeVRay},
};

void completeRenderJob(const _visit& visit, const _renderer& renderer) {
    for (const auto& rule : rendererRules)
        if (rule.kind == renderer.kind) rule.complete(visit);
    takeVersion(visit, visit.scene.versions[static_cast<std::size_t>(&renderer - renderers.data())]);
    const bool isAlwaysNumbered = renderer.kind == _kind::mantra;  // an IFD holds one frame
    takeExportAsScene(visit, isAlwaysNumbered || !visit.before.singleFile);
}

bool isApplicationOf(const _renderer& renderer, const _JobBasics_largePath& job) {
    return !job.app.isEmpty() && (job.app == renderer.application || job.app == renderer.oneFileApplication);
}

void completeForApplication(const _visit& visit) {
    if (visit.job.app == appNameHoudini) completeHoudini(visit);
    for (const _renderer& renderer : renderers)
        if (isApplicationOf(renderer, visit.job)) completeRenderJob(visit, renderer);
}

// ---- what holds for every application

void setHoudiniFacts(const _visit& visit) {
    visit.job.appVersionMajor = static_cast<qint16>(visit.scene.houdini.versionMajor);
    setMinorVersion(visit.job, visit.scene.houdini);
    for (const QString& value : visit.scene.jobVariables) setCustomData(visit.job, QStringLiteral("HoudiniJob"), value);
    const QString take = nodeActiveTakes.value(visit.job.layer);
    if (!take.isEmpty()) visit.job.channel = take;
}

void compressIFD(const _visit& visit) {
    const bool isIFD = visit.job.appRenderer == rendererOf(_kind::mantra).exportJob;
    if (!isIFD || !visit.scene.facts.compressedIFD) return;
    visit.job.appRenderer = exportCompressedIFD;
    if (visit.job.imageExtension.length() <= longestExtensionToCompress)
        visit.job.imageExtension.append(compressedExtension);
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

void setCustomData(_JobBasics_largePath& job, const QString& name, const QString& value) {
    const auto cut = [](qint64 size) { return std::clamp<qint64>(size, 0, vxJ::customDataBlockCapacity); };
    spendWork(customDataCost, cut(job.sceneSettings.customDataValuesEnd) + cut(value.size()));
    job.sceneSettings.customDataSet_Str(name, value);
}

vxRA::_RenderAppBasic rendererVersionOf(const QString& text) {
    vxRA::_RenderAppBasic version;
    version.versionMajor = integerOf(textBefore(text, u'.'));
    version.setVersionMinor(text.contains(u'.') ? textBefore(textBehind(text, u'.'), u'.') : QString());
    return version;
}

void completeJob(_JobBasics_largePath& job, const _sceneSummary& scene, _outputBefore& before) {
    const _visit visit{job, scene, before};
    setHoudiniFacts(visit);
    completeForApplication(visit);
    compressIFD(visit);
    takeCamera(visit);
    before = outputOf(job);
}

}  // namespace vxP
