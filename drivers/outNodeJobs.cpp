#include "drivers/outNodeJobs.h"

#include "catalogues/lopList.h"
#include "drivers/aovFiles.h"
#include "drivers/outNodeNames.h"
#include "grammar/houdiniVariables.h"
#include "jobs/recordImage.h"
#include "scan/scanBudget.h"
#include "scan/scanObserver.h"
#include "shared/vxLatin.h"
#include "shared/vxPath.h"

namespace vxP {

namespace {

using vxJ::_JobBasics_largePath;

constexpr QLatin1String viewerOnly{"ip"};  ///< an image that is only shown on the screen
constexpr QLatin1String simulationMark{"_sim_"};

/// A simulation runs on one machine from the first frame to the last.
constexpr QLatin1String simulationParameters{
    " \"RenderPreviewFirst=0~0\" \"DistributeStartToEnd=0~1\" \"MaxClientsAtATime=0~1\" \"SeqDivMIN=0~0\""};

struct _aovPlaceholder {
    QLatin1String variable;
    QLatin1String placeholder;
};

constexpr std::array aovPlaceholders{
    _aovPlaceholder{QLatin1String{"$AOV."}, QLatin1String{"<ValueVar @$AOV.>"}},
    _aovPlaceholder{QLatin1String{"$AOV/"}, QLatin1String{"<ValueVar @$AOV/>"}},
    _aovPlaceholder{QLatin1String{"$AOV_"}, QLatin1String{"<ValueVar @$AOV_>"}},
};

/// A Karma driver renders the stage that it is in: it is its own LOP node.
void registerKarma(_driver& driver) {
    const bool isKarma =
        driver.traits == nullptr ? driver.nodePath.contains(vxS::latin(karmaNode)) : driver.traits->rendersStage;
    if (!isKarma) return;
    _LOPNode node;
    node.lopName = driver.nodePath;
    node.imageName = driver.imageName;
    node.imageUsesTake = driver.activeTakeUsed;
    LOPList.addLOP(node);
    LOPList.addLOPFromOutNode(driver.nodePath, driver.nodePath);
    driver.kinds.set(_kind::lop);
    driver.kinds.clear(_kind::openGL);
}

bool writesAFile(const QString& name, _remark whenEmpty, _remark whenViewerOnly) {
    if (name.isEmpty()) tellOfSection(whenEmpty);
    if (name == viewerOnly) tellOfSection(whenViewerOnly, name);
    return !name.isEmpty() && name != viewerOnly;
}

bool hasUsableOutput(const _driver& driver) {
    const bool hasImage =
        driver.exportsOnly() || writesAFile(driver.imageName, _remark::noImageName, _remark::imageViewerOnly);
    return hasImage &&
           (!driver.isExport || writesAFile(driver.exportName, _remark::noExportName, _remark::exportViewerOnly));
}

void removeBraces(QString& name) {
    name.remove(QLatin1Char('{')).remove(QLatin1Char('}'));
}

void markAovVariables(QString& name) {
    for (const auto& row : aovPlaceholders) name.replace(row.variable, row.placeholder);
}

QString translated(const QString& name, const _driver& driver, _JobBasics_largePath& job) {
    return replaceHoudiniVariables(name, &job, hVariables, *driver.load.sceneFileName);
}

void fillJob(const _driver& driver, _JobBasics_largePath& job) {
    job.app = appNameHoudini;
    job.sceneDatabaseDir = DatabaseDir;
    job.sceneSettings.seqStart = seqStart;
    job.sceneSettings.seqEnd = seqEnd;
    job.sceneSettings.seqStep = static_cast<quint16>(seqStep);
    job.layer = driver.nodePath;
    job.imageWidth = static_cast<quint16>(driver.resolutionWidth);
    job.imageHeight = static_cast<quint16>(driver.resolutionHeight);
    job.sceneSettings.customDataSet_Str(vxJ::CUSTOMSubmitterPluginVersion, vxJ::vxVersion);
}

/// Every pass file becomes the next channel of a job that renders; they are split with the job's own file.
void addChannels(const _driver& driver, _JobBasics_largePath& job) {
    std::size_t channel = 0;
    for (const _aovSlot& slot : driver.aovs) {
        if (slot.fileName.isEmpty()) continue;
        _vxString<1000>& fileName = job.channels[channel++].fileName;
        fileName = translated(slot.fileName, driver, job);
        spendWork(splitNameCost, fileName.length());
    }
}

void splitImageName(const QString& name, const _driver& driver, _JobBasics_largePath& job) {
    job.imageFileName = translated(name, driver, job);
    if (scanObserver != nullptr && !vxS::vxPathIsAbsolute(job.imageFileName.toQString()))
        tellOfSection(_remark::relativeName, job.imageFileName.toQString());
    spendWork(splitNameCost, job.imageFileName.length());
    job.splitImageFileInto_DirFileExt(true);
}

quint8 numberOfLastJob(const vxJ::_JobBasicsArray& jobs) {
    return static_cast<quint8>(jobs.count);
}

/// A name without a frame number is that of one file, which a plain load leaves open.
void noteOneFile(const _driver& driver, bool hasNoFrame, const QString& name, _JobBasics_largePath& job) {
    if (driver.traits != nullptr && hasNoFrame) job.imageSingleOutputFile = true;
    if (scanObserver != nullptr && hasNoFrame && !name.contains(QLatin1Char('%')))
        tellOfSection(_remark::noFrameNumber, QString::number(driver.load.jobArray->count));
}

void completeFirstJob(_driver& driver, vxJ::_JobBasicsArray& jobs, _JobBasics_largePath& job) {
    if (driver.isExport) {
        job.imageFileName = driver.exportName;
        nameExportJob(driver, job, jobs);
        noteOneFile(driver, driver.oneExportFile, driver.exportName, job);
    } else {
        job.imageFileName = driver.imageName;
        nameRenderJob(driver, job);
        noteOneFile(driver, driver.oneImageFile, driver.imageName, job);
        addChannels(driver, job);
    }
    splitImageName(job.imageFileName.toQString(), driver, job);  // as far as the record holds it
    job.preID = numberOfLastJob(jobs);
}

qint32 noMoreJobs() {
    tellOfSection(_remark::noMoreJobs);
    return resultNoMoreJobs;
}

/// The job that renders what the job before it exports.
qint32 addJobOfExport(const _driver& driver, vxJ::_JobBasicsArray& jobs) {
    mantraIFDJob = true;
    _JobBasics_largePath* job = nullptr;
    if (!jobs.getNewJob(job)) return noMoreJobs();
    const _JobBasics_largePath& exportJob = *jobs.at(jobs.count - 2);
    vxJ::_recordImage(exportJob, vxJ::_writtenPages{}).copy(exportJob, *job);
    job->preID = numberOfLastJob(jobs);
    job->waitForPreIDCount = 1;
    job->waitForPreIDs[0] = static_cast<quint8>(jobs.count - 1);
    job->imageSingleOutputFile = false;
    job->imageDir.clear();
    job->imageExtension.clear();
    nameJobOfExport(driver, exportJob.imageSingleOutputFile, *job);
    noteOneFile(driver, driver.oneImageFile, driver.imageName, *job);
    addChannels(driver, *job);
    splitImageName(driver.imageName, driver, *job);
    return resultSuccess;
}

}  // namespace

qint32 addJobsOf(_driver& driver) {
    registerKarma(driver);
    driver.isExport |= driver.exportsOnly();
    if (!hasUsableOutput(driver)) {
        emptyNodesfound = true;
        return resultSuccess;
    }
    vxJ::_JobBasicsArray& jobs = *driver.load.jobArray;
    _JobBasics_largePath* job = nullptr;
    if (!jobs.getNewJob(job)) return noMoreJobs();
    const qint32 first = jobs.count - 1;
    fillJob(driver, *job);
    for (QString* const name : {&driver.imageName, &driver.exportName}) removeBraces(*name);
    assembleAovFileNames(driver.aovs, driver.imageName);
    keepMemory(bytesOf(driver.take));
    nodeActiveTakes[_vxString<150>(driver.nodePath)] = driver.take;
    for (QString* const name : {&driver.imageName, &driver.exportName}) markAovVariables(*name);
    completeFirstJob(driver, jobs, *job);
    if (driver.isExport && !driver.cameraIsProxyExport && !driver.exportsOnly()) {
        const qint32 added = addJobOfExport(driver, jobs);
        if (added != resultSuccess) return added;
        job = jobs.at(first);
    }
    // The render job was copied before and does not get it.
    if (job->layer.contains(QString(simulationMark)))
        job->sceneSettings.customDataSet_Str(vxJ::CUSTOMSubmitterParameter, simulationParameters);
    return resultSuccess;
}

}  // namespace vxP
