// One scene through the plug-in: the host records, the entry point, the result as JSON.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <functional>
#include <vector>

#include "host/access/pluginLibrary.h"
#include "host/results/sceneResult.h"

namespace vxH {

/// The submitter's command line: element 0 is the program. Zero-terminated UTF-8, owned by the caller.
using _submitterArguments = std::vector<const char*>;

/// Makes the `jobs` member of a result from the records.
using _jobsReader = std::function<QJsonArray(const vxJ::_JobBasicsArray&)>;

/// Every field of every job, see jobJson.h.
QJsonArray jobsToJson(const vxJ::_JobBasicsArray& jobs);

/// The entry point that loads a scene, or what stands for it.
using _sceneLoader = std::function<qint32(vxP::_dataPARS_LoadSceneFile*)>;

/// Loads the scene in this process and returns its result. Jobs added before a failure are in the result.
/// @param scene  absolute path of at most 500 characters
QJsonObject loadScene(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments,
                      const _jobsReader& readJobs);

/// The same in a process of its own, for a scene as named on the command line. What keeps the plug-in from answering
/// is the result's code (a `_hostCode`) and error.
QJsonObject loadSceneApart(const QString& pluginPath, const char* scene, const _submitterArguments& arguments,
                           const _jobsReader& readJobs = jobsToJson);

/// Member of the info record: which files are scenes, as wildcards "*.hip;*.hipnc;".
constexpr QLatin1String fileFilterKey{"fileFilter"};

/// The plug-in's info record with the record's field names, and its answer as `code`.
QJsonObject readPluginInfo(const _pluginLibrary& plugin);

}  // namespace vxH
