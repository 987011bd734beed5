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

_childResult askPlugin(const _askedPlugin& plugin, const std::function<QByteArray(const _pluginLibrary&)>& question) {
    const auto work = [&]() -> _childResult {
        _pluginLibrary library;
        const QString problem = library.load(plugin.path);
        if (!problem.isEmpty()) return {hostNoPlugin, problem, {}};
        return {0, {}, question(library)};
    };
    return collectChild(startChild(work), plugin.timeout);
}

_infoAnswer askForInfo(const _askedPlugin& plugin) {
    const auto [code, failure, bytes] = askPlugin(plugin, [](const _pluginLibrary& library) {
        return QJsonDocument(infoToJson(readInfo(library))).toJson(QJsonDocument::Compact);
    });
    return {infoFromJson(QJsonDocument::fromJson(bytes).object()), code, failure};
}

QString problemOfInfo(const _pluginInfo& info) {
    if (info.code != vxP::resultSuccess)
        return QStringLiteral("pInfo: %1 (code %2)").arg(sentenceOfCode(info.code), QString::number(info.code));
    const bool isEmpty = info.appName.isEmpty() && info.fileFilter.isEmpty();
    return isEmpty ? QStringLiteral("pInfo told of success and wrote nothing") : QString{};
}

}  // namespace vxH
