#include "drivers/outNodeNames.h"

#include "catalogues/lopList.h"

namespace vxP {

namespace {

constexpr const _renderer& stage = rendererOf(_kind::lop);
constexpr const _renderer& mantra = rendererOf(_kind::mantra);
constexpr const _renderer& arnold = rendererOf(_kind::arnold);

constexpr QStringView noLocalRender{u" \"AllowLocalRenderOut=0~0\""};

/// The first renderer of the driver's kinds that has such a name; Mantra when there is none.
const _renderer& rendererWith(QStringView _renderer::*name, const _driver& driver) {
    for (const _renderer& renderer : renderers)
        if (driver.has(renderer.kind) && !(renderer.*name).isEmpty()) return renderer;
    return mantra;
}

/// The LOP node that the driver renders; null when none is known.
const _LOPNode* lopOf(const _driver& driver) {
    const qint32 index = LOPList.findLOPIndexByRenderNode(driver.nodePath);
    return index < 0 ? nullptr : &LOPList[index];
}

bool isRedshiftArchive(const QString& rendererName, const QString& exportName) {
    return rendererName.contains(QLatin1String("redshift")) && exportName.endsWith(QLatin1String(".rs"));
}

}  // namespace

void nameRenderJob(const _driver& driver, vxJ::_JobBasics_largePath& job) {
    if (driver.has(_kind::lop)) {
        if (const _LOPNode* const lop = lopOf(driver)) job.appRenderer = lop->rendererName_render();
        return;
    }
    const _renderer& renderer = rendererWith(&_renderer::renderJob, driver);
    const bool oneFile = driver.singleFile && !renderer.oneFileRenderJob.isEmpty();
    job.appRenderer = oneFile ? renderer.oneFileRenderJob : renderer.renderJob;
    if (oneFile) job.imageSingleOutputFile = true;
}

void nameExportJob(_driver& driver, vxJ::_JobBasics_largePath& job, vxJ::_JobBasicsArray& jobs) {
    if (driver.has(_kind::lop)) {
        if (driver.singleFile) job.imageSingleOutputFile = true;
        const _LOPNode* const lop = lopOf(driver);
        const QString name = lop == nullptr ? stage.exportJob.toString() : lop->rendererName_create();
        job.appRenderer = name;
        if (!isRedshiftArchive(name, driver.exportName)) return;
        driver.kinds.set(_kind::redshift);
        jobs.message.append(noLocalRender);
    }
    const _renderer& renderer = rendererWith(&_renderer::exportJob, driver);
    job.appRenderer = renderer.exportJob;
    if (renderer.exportsOneFile && driver.singleFile) job.imageSingleOutputFile = true;
}

void nameJobOfExport(const _driver& driver, bool oneExportFile, vxJ::_JobBasics_largePath& job) {
    if (!driver.has(_kind::lop)) {
        job.app = rendererWith(&_renderer::application, driver).application;
        return;
    }
    job.app = oneExportFile ? stage.oneFileApplication : stage.application;
    const _LOPNode* const lop = lopOf(driver);
    job.appRenderer = lop == nullptr ? QString() : lop->renderer;
    // Also for a stage in one file: hosts match jobs by their application, so it stays the one that they know.
    if (lop != nullptr && lop->renderer == arnold.renderJob) job.app = arnold.application;
}

}  // namespace vxP
