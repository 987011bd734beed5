#include "host/access/askPlugin.h"

#include <QJsonDocument>

#include "host/base/resultCodes.h"

namespace vxH {
namespace {

_pluginInfo readInfo(const _pluginLibrary& plugin) {
    auto record = vxP::_dataPARS_PluginInfo{};
    record.structureVersion = vxP::pluginStructureVersion;
    const quint8 code = plugin.info(&record);
    return {code,
            record.structureVersion,
            record.pluginKind,
            record.flag,
            record.appName.toQString(),
            record.author.toQString(),
            record.pluginVersion.toQString(),
            record.hostLibraryVersion.toQString(),
            record.qtVersion.toQString(),
            record.fileFilter.toQString()};
}

}  // namespace

_childResult askPlugin(const QString& pluginPath, const std::function<QByteArray(const _pluginLibrary&)>& question) {
    return collectChild(startChild([&]() -> _childResult {
        _pluginLibrary plugin;
        const QString problem = plugin.load(pluginPath);
        if (!problem.isEmpty()) return {hostNoPlugin, problem, {}};
        return {0, {}, question(plugin)};
    }));
}

_infoAnswer askForInfo(const QString& pluginPath) {
    const auto [code, failure, bytes] = askPlugin(pluginPath, [](const _pluginLibrary& plugin) {
        return QJsonDocument(infoToJson(readInfo(plugin))).toJson(QJsonDocument::Compact);
    });
    return {infoFromJson(QJsonDocument::fromJson(bytes).object()), code, failure};
}

}  // namespace vxH
