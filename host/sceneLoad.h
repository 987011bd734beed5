// One scene through the plug-in: the host records, the entry point, the result as JSON.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <functional>
#include <vector>

#include "host/pluginLibrary.h"

namespace vxH {

// Members of a scene's result.
constexpr QLatin1String sceneKey{"scene"};      ///< absolute path
constexpr QLatin1String codeKey{"code"};        ///< the plug-in's code, or a `_hostCode`
constexpr QLatin1String messageKey{"message"};  ///< submitter options of the whole submission
constexpr QLatin1String jobsKey{"jobs"};        ///< what the reader made of the jobs
constexpr QLatin1String errorKey{"error"};      ///< what went wrong; only there when the code is not 1

/// The submitter's command line: element 0 is the program. Zero-terminated UTF-8, owned by the caller.
using _submitterArguments = std::vector<const char*>;

/// Makes the `jobs` member of a result from the records.
using _jobsReader = std::function<QJsonArray(const vxJ::_JobBasicsArray&)>;

/// Every field of every job, see jobJson.h.
QJsonArray jobsToJson(const vxJ::_JobBasicsArray& jobs);

/// The result of a scene without jobs; `error` counts only where the code tells a failure.
QJsonObject sceneResult(const QString& scene, qint32 code, const QString& error);

/// Loads the scene in this process and returns its result. Jobs added before a failure are in the result.
/// @param scene  absolute path of at most 500 characters
QJsonObject loadScene(const _pluginLibrary& plugin, const QString& scene, const _submitterArguments& arguments,
                      const _jobsReader& readJobs);

/// The same in a process of its own, for a scene as named on the command line. What keeps the plug-in from answering
/// is the result's code (a `_hostCode`) and error.
QJsonObject loadSceneApart(const QString& pluginPath, const char* scene, const _submitterArguments& arguments,
                           const _jobsReader& readJobs = jobsToJson);

/// The plug-in's info record with the record's field names, and its answer as `code`.
QJsonObject readPluginInfo(const _pluginLibrary& plugin);

}  // namespace vxH
