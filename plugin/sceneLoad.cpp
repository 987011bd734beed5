#include "plugin/sceneLoad.h"

#include "input/sceneFile.h"
#include "plugin/jobFinishing.h"
#include "plugin/resolvedScan.h"
#include "plugin/submitterArguments.h"
#include "scan/scanBudget.h"

namespace vxP {

namespace {

constexpr quint8 neededLayoutMinor = 1;

/// Both numbers are the host's: what they say may not be there. A load that ended with 7 may have left such an array,
/// too, and the next one has the same to say of it.
bool hasRecordOfEachJob(const vxJ::_JobBasicsArray& jobs) {
    return jobs.count >= 0 && jobs.count <= jobs.allocated && (jobs.allocated == 0 || jobs.jobs != nullptr);
}

qint32 loadInto(_dataPARS_LoadSceneFile& load, _sceneFacts& facts) {
    if (!load.jobArray->isVersionSupported(neededLayoutMinor)) return resultVersionMismatch;
    if (!hasRecordOfEachJob(*load.jobArray)) return resultNoMoreJobs;
    beginBudget();
    readSubmitterArguments(*load.settings, facts);
    _sceneFile file(load.sceneFileName->toQString());
    if (!file.isOpen()) return resultCannotOpen;
    importSceneFolder(*load.sceneFileName);
    importEnvironment();
    _resolvedDrivers drivers;
    const qint32 scanned = facts.resolves ? scanResolved(load, file, facts, drivers) : scanScene(load, file, facts);
    return scanned == resultSuccess ? finishJobs(load, facts, drivers) : scanned;
}

}  // namespace

qint32 loadScene(_dataPARS_LoadSceneFile& load, _sceneFacts& facts) noexcept try {
    return loadInto(load, facts);
} catch (...) {
    return resultException;
}

}  // namespace vxP
