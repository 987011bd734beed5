// A scene's jobs and why they are what they are, by the readers that are built into this program.
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "host/access/sceneLoad.h"
#include "host/base/submitterArguments.h"
#include "host/results/explainedScene.h"
#include "host/results/pluginInfo.h"

namespace vxH {

/// Loads the scene in this process and explains it.
/// @param scene  absolute path of at most 500 characters
_explainedScene explainScene(const QString& scene, const _submitterArguments& arguments,
                             vxE::_surveyBreadth breadth = vxE::_surveyBreadth::wholeScene);

/// The same for who needs the records too. @param use  gets the scene with its jobs, but not yet its code
_explainedScene explainScene(const QString& scene, const _submitterArguments& arguments,
                             const std::function<void(const _explainedScene&, const vxJ::_JobBasicsArray&)>& use,
                             vxE::_surveyBreadth breadth = vxE::_surveyBreadth::wholeScene);

/// Whether a plug-in that says this of itself is the one that is built into this program, as far as it says.
bool isOwnPlugin(const _pluginInfo& info);

/// Makes the error of a scene that has no jobs, as no driver has a usable output name, tell of its drivers. It reads
/// the scene once more.
void tellWhyThereAreNoJobs(_sceneHead& head, const _submitterArguments& arguments);

/// Which of the processor's instructions the readers search scenes with: "AVX2".
QString searchMethod();

/// What the readers of sections are called, in the order in which headers are compared with them.
std::vector<std::string> readerNames();

/// The scene's jobs by the same readers, and for a resolved load what of them was computed.
_sceneResult loadWithNotes(const QString& scene, const _submitterArguments& arguments);

/// Loads a scene with the readers, as the plug-in's entry point does.
_sceneLoader builtInLoader();

/// Which files of a folder are scenes: "*.hip;*.hipnc;".
QString sceneFileFilter();

}  // namespace vxH
