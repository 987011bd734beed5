// Builds the records that the entry point takes and reads them afterwards.
#include "host/access/sceneLoad.h"

#include <QJsonDocument>

#include "host/access/askPlugin.h"
#include "host/base/resultCodes.h"
#include "host/base/scenePath.h"
#include "host/results/recordReading.h"
#include "host/results/sceneJson.h"

namespace vxH {
namespace {

using _recordReader = std::function<void(const vxJ::_JobBasicsArray&)>;

_sceneHead loadRecords(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments,
                       const _recordReader& read) {
    const vxS::_vxString<500> sceneFileName{scene};
    vxJ::_JobBasicsArray records;
    const vxP::_submitterSettings settings{static_cast<qint32>(arguments.size()), arguments.data()};
    vxP::_dataPARS_LoadSceneFile load{&sceneFileName, &records, &settings};
    const qint32 code = loader(&load);
    read(records);
    const bool isLoaded = code == vxP::resultSuccess;
    return {scene, code, isLoaded ? QString{} : sentenceOfCode(code), records.message.toQString()};
}

/// @param answer  makes the result of the absolute path, as JSON, in a child process
template <class _result, class _answer>
_result loadApart(const QString& pluginPath, const char* scene, _result (*fromJson)(const QJsonObject&),
                  const _answer& answer) {
    const auto [path, problem] = absoluteScenePath(scene);
    if (!problem.isEmpty()) return {failedHead(path, hostPathUnusable, problem), {}};
    const auto [code, failure, bytes] = askPlugin(pluginPath, [&, &scenePath = path](const _pluginLibrary& plugin) {
        return QJsonDocument(answer(plugin.loadSceneFile, scenePath)).toJson(QJsonDocument::Compact);
    });
    if (code != 0) return {failedHead(path, code, failure), {}};
    return fromJson(QJsonDocument::fromJson(bytes).object());
}

}  // namespace

_sceneResult loadScene(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments) {
    _sceneResult result;
    static_cast<_sceneHead&>(result) =
        loadRecords(loader, scene, arguments, [&](const auto& records) { result.jobs = jobsOf(records); });
    return result;
}

_sceneResult loadSceneApart(const QString& pluginPath, const char* scene, const _submitterArguments& arguments) {
    return loadApart(pluginPath, scene, sceneFromJson, [&](const _sceneLoader& loader, const QString& path) {
        return sceneToJson(loadScene(loader, path, arguments));
    });
}

_sceneVariables loadVariablesApart(const QString& pluginPath, const char* scene, const _submitterArguments& arguments,
                                   int jobNumber) {
    return loadApart(pluginPath, scene, variablesFromJson, [&](const _sceneLoader& loader, const QString& path) {
        _sceneVariables result;
        static_cast<_sceneHead&>(result) = loadRecords(
            loader, path, arguments, [&](const auto& records) { result.jobs = variablesOf(records, jobNumber); });
        return variablesToJson(result);
    });
}

}  // namespace vxH
