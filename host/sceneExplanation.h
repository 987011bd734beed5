// What the reader made of a scene, and why.
#pragma once

#include <QJsonObject>

#include "host/sceneLoad.h"

namespace vxH {

/// The scene's result with all jobs; where the reader tells more, with `facts`, `sections`, `notRecognised` and
/// `warnings`. What keeps it from an answer is the result's code and error.
QJsonObject explainScene(const QString& absoluteScenePath, const _submitterArguments& submitter);

}  // namespace vxH
