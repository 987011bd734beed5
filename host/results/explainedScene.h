// A scene's jobs and why they are what they are.
#pragma once

#include <QJsonObject>

#include "explain/explanation.h"
#include "host/results/sceneResult.h"

namespace vxH {

struct _explainedScene : _sceneResult {
    vxE::_explanation explanation;  ///< of a scene that was not read: none
};

/// The members of sceneJson.h and, of a scene that was read, those of explanationJson.h.
QJsonObject explainedToJson(const _explainedScene& scene);

/// Why a scene has no jobs: its drivers, none of which gives one, or that there are none. One line.
QString whyNoJobs(const vxE::_explanation& explanation);

/// True for a section that people miss in the job list: a driver or wedge that nothing came of, or a driver that was
/// taken for a camera. Nodes that are only called like a driver, and have nothing else of one, are none, and neither
/// are those that read files.
bool isSkippedDriver(const vxE::_explainedSection& section);

}  // namespace vxH
