// A scene's jobs and why they are what they are, by the readers that are built into this program.
#pragma once

#include <QJsonObject>
#include <QString>

#include "host/access/sceneLoad.h"
#include "host/results/explanationJson.h"

namespace vxH {

/// Loads the scene in this process and explains it: a scene's result with every field of every job, and the members
/// of its explanation.
/// @param scene  absolute path of at most 500 characters
QJsonObject explainScene(const QString& scene, const _submitterArguments& arguments);

/// True for an entry of `sections` that people miss in the job list: a driver or wedge that nothing came of. Nodes that
/// are only called like a driver, and have nothing else of one, are none.
bool isSkippedDriver(const QJsonValue& section);

/// Which files of a folder are scenes: "*.hip;*.hipnc;".
QString sceneFileFilter();

}  // namespace vxH
