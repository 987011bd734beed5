// A scene's jobs and why they are what they are, by the readers that are built into this program.
#pragma once

#include <QString>

#include "host/base/submitterArguments.h"
#include "host/results/explainedScene.h"

namespace vxH {

/// Loads the scene in this process and explains it.
/// @param scene  absolute path of at most 500 characters
_explainedScene explainScene(const QString& scene, const _submitterArguments& arguments);

/// Makes the error of a scene that has no jobs, as no driver has a usable output name, tell of its drivers. It reads
/// the scene once more.
void tellWhyThereAreNoJobs(_sceneHead& head, const _submitterArguments& arguments);

/// Which files of a folder are scenes: "*.hip;*.hipnc;".
QString sceneFileFilter();

}  // namespace vxH
