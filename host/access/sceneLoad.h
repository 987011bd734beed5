// One scene through the plug-in: the host's records, the entry point, and what is kept of the records.
#pragma once

#include <QString>
#include <functional>

#include "host/access/askPlugin.h"
#include "host/access/pluginLibrary.h"
#include "host/base/submitterArguments.h"
#include "host/results/sceneResult.h"

namespace vxH {

/// The entry point that loads a scene, or a function in its place.
using _sceneLoader = std::function<qint32(vxP::_dataPARS_LoadSceneFile*)>;

/// Notes whether the file is all of a scene; of one that is none, and that nothing came of, it makes a failure. The
/// plug-in does not tell.
/// @param hasJobs  where jobs came of a file, it is a scene
void lookAtFile(_sceneHead& head, bool hasJobs);

/// What a code says of a scene, in one line; empty for one that was loaded. Why a scene cannot be opened is asked here:
/// the plug-in does not say.
QString errorOf(qint32 code, const QString& scene);

/// Loads the scene in this process. Jobs added before a failure are in the result.
/// @param scene  absolute path of at most 500 characters
_sceneResult loadScene(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments);

/// The same for who needs the records too. @param use  gets the scene with its jobs, but not yet its code
_sceneResult loadScene(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments,
                       const std::function<void(const _sceneResult&, const vxJ::_JobBasicsArray&)>& use);

/// The first in a child process, for a scene as named on the command line. Why the plug-in did not answer is
/// the result's code (a `_hostCode`) and error.
_sceneResult loadSceneApart(const _askedPlugin& plugin, const char* scene, const _submitterArguments& arguments);

/// The variables of the scene's jobs, in the same way.
_sceneVariables loadVariablesApart(const _askedPlugin& plugin, const char* scene, const _submitterArguments& arguments);

}  // namespace vxH
