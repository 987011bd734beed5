// Builds the records that the entry points take and reads them afterwards.
#include "host/access/sceneLoad.h"

#include "host/access/askPlugin.h"
#include "host/base/scenePath.h"
#include "host/results/jobJson.h"

namespace vxH {

QJsonArray jobsToJson(const vxJ::_JobBasicsArray& jobs) {
    QJsonArray list;
    for (int i = 0; i < jobs.count; ++i) {
        const auto* const job = jobs.at(i);
        if (job == nullptr) break;  // counted, but there was no memory for it
        list.append(jobToJson(*job));
    }
    return list;
}

QJsonObject loadScene(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments,
                      const _jobsReader& readJobs) {
    const vxS::_vxString<500> sceneFileName{scene};
    vxJ::_JobBasicsArray jobs;
    const vxP::_submitterSettings settings{static_cast<qint32>(arguments.size()), arguments.data()};
    vxP::_dataPARS_LoadSceneFile load{&sceneFileName, &jobs, &settings};

    const qint32 code = loader(&load);

    auto result = sceneResult(scene, code, sentenceOfCode(code));
    result.insert(messageKey, jobs.message.toQString());
    result.insert(jobsKey, readJobs(jobs));
    return result;
}

QJsonObject loadSceneApart(const QString& pluginPath, const char* scene, const _submitterArguments& arguments,
                           const _jobsReader& readJobs) {
    const auto [path, problem] = absoluteScenePath(scene);
    if (!problem.isEmpty()) return sceneResult(path, hostPathUnusable, problem);
    const auto answer = askPlugin(pluginPath, [&, &scenePath = path](const _pluginLibrary& plugin) {
        return loadScene(plugin.loadSceneFile, scenePath, arguments, readJobs);
    });
    return answer.code == 0 ? answer.answer : sceneResult(path, answer.code, answer.failure);
}

QJsonObject readPluginInfo(const _pluginLibrary& plugin) {
    auto info = vxP::_dataPARS_PluginInfo{};
    info.structureVersion = vxP::pluginStructureVersion;
    const quint8 code = plugin.info(&info);
    return {{codeKey, code},
            {QLatin1String{"structureVersion"}, info.structureVersion},
            {QLatin1String{"pluginKind"}, info.pluginKind},
            {QLatin1String{"appName"}, info.appName.toQString()},
            {QLatin1String{"author"}, info.author.toQString()},
            {QLatin1String{"pluginVersion"}, info.pluginVersion.toQString()},
            {QLatin1String{"hostLibraryVersion"}, info.hostLibraryVersion.toQString()},
            {QLatin1String{"qtVersion"}, info.qtVersion.toQString()},
            {QLatin1String{"flag"}, info.flag},
            {fileFilterKey, info.fileFilter.toQString()}};
}

}  // namespace vxH
