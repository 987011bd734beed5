// Builds the records that the entry point takes and reads them afterwards.
#include "host/access/sceneLoad.h"

#include <QJsonDocument>

#include "host/access/askPlugin.h"
#include "host/access/sceneExplanation.h"
#include "host/base/resultCodes.h"
#include "host/base/scenePath.h"
#include "host/base/systemReason.h"
#include "host/results/recordReading.h"
#include "host/results/sceneJson.h"
#include "input/sceneFile.h"
#include "input/sceneForm.h"

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
    _sceneHead head{scene, code, errorOf(code, scene), records.message.toQString()};
    lookAtFile(head, records.count > 0);
    return head;
}

/// @param answer  makes the result of the absolute path, as JSON, in a child process
template <class _result, class _answer>
_result loadApart(const _askedPlugin& plugin, const char* scene, _result (*fromJson)(const QJsonObject&),
                  const _answer& answer) {
    const auto [path, problem] = absoluteScenePath(scene);
    if (!problem.isEmpty()) return {failedHead(path, hostPathUnusable, problem), {}};
    const auto [code, failure, bytes] = askPlugin(plugin, [&, &scenePath = path](const _pluginLibrary& library) {
        return QJsonDocument(answer(library.loadSceneFile, scenePath)).toJson(QJsonDocument::Compact);
    });
    if (code != 0) return {failedHead(path, code, failure), {}};
    return fromJson(QJsonDocument::fromJson(bytes).object());
}

}  // namespace

void lookAtFile(_sceneHead& head, bool hasJobs) {
    const vxP::_sceneFile file(head.scene);
    if (!file.isOpen()) return;
    const auto [form, instead] = vxP::formOf(file);
    const bool foundNothing = !hasJobs && (head.isLoaded() || head.code == vxP::resultException);
    if (form != vxP::_sceneForm::none) {
        head.isComplete = form == vxP::_sceneForm::whole;
    } else if (foundNothing) {
        head.code = hostNoScene;
        head.error = sentenceOfCode(head.code);
        if (!instead.isEmpty()) head.error += QLatin1String{": "} + instead;
    }
}

QString errorOf(qint32 code, const QString& scene) {
    if (code == vxP::resultSuccess) return {};
    const auto reason = code == vxP::resultCannotOpen ? whyNotReadable(scene) : QString{};
    return reason.isEmpty() ? sentenceOfCode(code) : sentenceOfCode(code) + QLatin1String{": "} + reason;
}

_sceneResult loadScene(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments,
                       const std::function<void(const _sceneResult&, const vxJ::_JobBasicsArray&)>& use) {
    _sceneResult result;
    result.scene = scene;
    static_cast<_sceneHead&>(result) = loadRecords(loader, scene, arguments, [&](const auto& records) {
        result.jobs = jobsOf(records);
        use(result, records);
    });
    return result;
}

_sceneResult loadScene(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments) {
    return loadScene(loader, scene, arguments, [](const auto&, const auto&) {});
}

_sceneResult loadSceneApart(const _askedPlugin& plugin, const char* scene, const _submitterArguments& arguments) {
    return loadApart(plugin, scene, sceneFromJson, [&](const _sceneLoader& loader, const QString& path) {
        _sceneResult result = loadScene(loader, path, arguments);
        tellWhyThereAreNoJobs(result, arguments);
        return sceneToJson(result);
    });
}

_sceneVariables loadVariablesApart(const _askedPlugin& plugin, const char* scene,
                                   const _submitterArguments& arguments) {
    return loadApart(plugin, scene, variablesFromJson, [&](const _sceneLoader& loader, const QString& path) {
        _sceneVariables result;
        static_cast<_sceneHead&>(result) =
            loadRecords(loader, path, arguments, [&](const auto& records) { result.jobs = variablesOf(records); });
        tellWhyThereAreNoJobs(result, arguments);
        return variablesToJson(result);
    });
}

}  // namespace vxH
