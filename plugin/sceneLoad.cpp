#include "plugin/sceneLoad.h"

#include "input/sceneFile.h"
#include "plugin/jobFinishing.h"
#include "plugin/resolvedScan.h"
#include "scan/scanBudget.h"

namespace vxP {

namespace {

constexpr quint8 neededLayoutMinor = 1;

qint32 loadInto(_dataPARS_LoadSceneFile& load, _sceneFacts& facts) {
    if (!load.jobArray->isVersionSupported(neededLayoutMinor)) return resultVersionMismatch;
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
