#include "plugin/vxSceneParserHoudini.h"

#include "plugin/jobFinishing.h"
#include "plugin/sceneFile.h"
#include "plugin/sceneScan.h"
#include "readers/scanBudget.h"

namespace vxP {

namespace {

constexpr quint8 neededLayoutMinor = 1;

constexpr QStringView applicationName{u"Houdini"};
constexpr QStringView author{u"Scene Parser Developers"};
constexpr QStringView pluginVersion{u"1.0"};
constexpr QStringView fileFilter{u"*.hip;*.hipnc;*.hiplc;"};

quint8 fillInfo(_dataPARS_PluginInfo& info) {
    info.hostLibraryVersion = QString(vxJ::vxVersion);
    if (const char* const version = qVersion(); version != nullptr) info.qtVersion = QString::fromLatin1(version);
    info.pluginKind = 1;
    info.appName = applicationName;
    info.author = author;
    info.pluginVersion = pluginVersion;
    const quint16 callersVersion = info.structureVersion;
    info.structureVersion = pluginStructureVersion;
    if (callersVersion != pluginStructureVersion) return resultVersionMismatch;
    info.flag = 0;
    info.fileFilter = fileFilter;
    return resultSuccess;
}

qint32 loadScene(_dataPARS_LoadSceneFile& load) {
    if (!load.jobArray->isVersionSupported(neededLayoutMinor)) return resultVersionMismatch;
    beginBudget();
    _sceneFacts facts;
    readSubmitterArguments(*load.settings, facts);
    _sceneFile file(load.sceneFileName->toQString());
    if (!file.isOpen()) return resultCannotOpen;
    importSceneFolder(*load.sceneFileName);
    importEnvironment();
    const qint32 scanned = scanScene(load, file, facts);
    return scanned == resultSuccess ? finishJobs(load, facts) : scanned;
}

}  // namespace

}  // namespace vxP

quint8 pInfo(vxP::_dataPARS_PluginInfo* info) noexcept try { return vxP::fillInfo(*info); } catch (...) {
    return vxP::resultException;
}

qint32 pLoadSceneFile(vxP::_dataPARS_LoadSceneFile* load) noexcept try { return vxP::loadScene(*load); } catch (...) {
    return vxP::resultException;
}
