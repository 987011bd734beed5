#include "drivers/outNodeNames.h"

#include <span>

#include "catalogues/lopList.h"

namespace vxP {

namespace {

/// A kind of driver and the name that it gives.
struct _kindName {
    _kind kind;
    QLatin1String name;
};

constexpr std::array renderNames{
    // first kind that the driver has wins
    _kindName{_kind::arnold, QLatin1String{"arnold"}},     _kindName{_kind::openGL, QLatin1String{"opengl"}},
    _kindName{_kind::geometry, QLatin1String{"geometry"}}, _kindName{_kind::redshift, QLatin1String{"redshift"}},
    _kindName{_kind::renderman, QLatin1String{"prman"}},   _kindName{_kind::alembic, QLatin1String{"alembic"}},
    _kindName{_kind::vray, QLatin1String{"vray"}},
};

constexpr std::array exportNames{
    _kindName{_kind::arnold, QLatin1String{"createASS"}},
    _kindName{_kind::redshift, QLatin1String{"createRS"}},
    _kindName{_kind::renderman, QLatin1String{"createRIB"}},
    _kindName{_kind::vray, QLatin1String{"createVrScene"}},
};
constexpr QLatin1String mantraExportName{"createIFD"};

constexpr std::array exportApplications{
    _kindName{_kind::arnold, appNameArnold},
    _kindName{_kind::redshift, appNameRedshift},
    _kindName{_kind::renderman, appNameRenderman},
    _kindName{_kind::vray, appNameVRay},
};

constexpr QLatin1String usdExportName{"createUSD"};
constexpr QLatin1String alembicSingleFile{"alembic-singleFile"};
constexpr QStringView noLocalRender{u" \"AllowLocalRenderOut=0~0\""};

/// First row whose kind the driver has; null when there is none.
const _kindName* firstRow(std::span<const _kindName> rows, const _driver& driver) {
    for (const _kindName& row : rows)
        if (driver.has(row.kind)) return &row;
    return nullptr;
}

QString firstName(std::span<const _kindName> rows, const _driver& driver, QLatin1String otherwise) {
    const _kindName* const row = firstRow(rows, driver);
    return row == nullptr ? otherwise : row->name;
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
    const _kindName* const row = firstRow(renderNames, driver);
    if (row == nullptr) {
        job.appRenderer.clear();
    } else if (row->kind == _kind::alembic && driver.singleFile) {
        job.appRenderer = QString(alembicSingleFile);
        job.imageSingleOutputFile = true;
    } else {
        job.appRenderer = QString(row->name);
    }
}

void nameExportJob(_driver& driver, vxJ::_JobBasics_largePath& job, vxJ::_JobBasicsArray& jobs) {
    if (driver.has(_kind::lop)) {
        if (driver.singleFile) job.imageSingleOutputFile = true;
        const _LOPNode* const lop = lopOf(driver);
        const QString name = lop == nullptr ? QString(usdExportName) : lop->rendererName_create();
        job.appRenderer = name;
        if (!isRedshiftArchive(name, driver.exportName)) return;
        driver.kinds.set(_kind::redshift);
        jobs.message.append(noLocalRender);
    }
    job.appRenderer = firstName(exportNames, driver, mantraExportName);
    const _kindName* const row = firstRow(exportNames, driver);
    if (row != nullptr && row->kind == _kind::vray && driver.singleFile) job.imageSingleOutputFile = true;
}

void nameJobOfExport(const _driver& driver, bool oneExportFile, vxJ::_JobBasics_largePath& job) {
    if (!driver.has(_kind::lop)) {
        job.app = firstName(exportApplications, driver, appNameMantra);
        return;
    }
    job.app = QString(oneExportFile ? appNameUSDsingle : appNameUSD);
    const _LOPNode* const lop = lopOf(driver);
    job.appRenderer = lop == nullptr ? QString() : lop->renderer;
    if (lop == nullptr || lop->renderer != QLatin1String("arnold")) return;
    // Deliberate: the flag asked is the render job's own, cleared a moment before, so this is always "Arnold".
    job.app = QString(job.imageSingleOutputFile ? appNameArnold_singlefile : appNameArnold);
}

}  // namespace vxP
