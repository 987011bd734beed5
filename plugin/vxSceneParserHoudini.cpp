#include "plugin/vxSceneParserHoudini.h"

#include "plugin/sceneLoad.h"

namespace vxP {

namespace {

constexpr QStringView applicationName{u"Houdini"};
constexpr QStringView author{u"Scene Parser Developers"};

/// Hosts list the plug-in under this text. It goes with the major version alone: the other parts say nothing to hosts.
constexpr QStringView pluginVersion{u"1.0"};
static_assert(pluginVersion.front() == QChar(u'0' + VX_VERSION_MAJOR), "hosts have to be told of a new major version");

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
    info.fileFilter = sceneFileFilter;
    return resultSuccess;
}

}  // namespace

}  // namespace vxP

quint8 pInfo(vxP::_dataPARS_PluginInfo* info) noexcept try { return vxP::fillInfo(*info); } catch (...) {
    return vxP::resultException;
}

/// Facts hold texts and containers, whose making may fail as well.
qint32 pLoadSceneFile(vxP::_dataPARS_LoadSceneFile* load) noexcept try {
    vxP::_sceneFacts facts;
    return vxP::loadScene(*load, facts);
} catch (...) {
    return vxP::resultException;
}
