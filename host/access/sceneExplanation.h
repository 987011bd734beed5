// A scene's jobs and why they are what they are, by the readers that are built into this program.
#pragma once

#include <QString>

#include "host/access/sceneLoad.h"
#include "host/base/submitterArguments.h"
#include "host/results/explainedScene.h"

namespace vxH {

/// Loads the scene in this process and explains it.
/// @param scene  absolute path of at most 500 characters
_explainedScene explainScene(const QString& scene, const _submitterArguments& arguments);

/// The scene's jobs by the same readers, and for a resolved load what of them was computed.
_sceneResult loadWithNotes(const QString& scene, const _submitterArguments& arguments);

/// Loads a scene with the readers, as the plug-in's entry point does.
_sceneLoader builtInLoader();

/// Which files of a folder are scenes: "*.hip;*.hipnc;".
QString sceneFileFilter();

}  // namespace vxH
