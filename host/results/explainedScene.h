// A scene's jobs and why they are what they are.
#pragma once

#include <QJsonObject>

#include "explain/explanation.h"
#include "host/results/explanationFilter.h"
#include "host/results/sceneResult.h"

namespace vxH {

struct _explainedScene : _sceneResult {
    vxE::_explanation explanation;  ///< of a scene that was not read: none
    _explanationFilter filter{};    ///< which entries of it are there
};

/// JSON of the members of sceneJson.h and, of a scene that was read, those of explanationJson.h that were asked for, as
/// it is printed.
QString explainedText(const _explainedScene& scene, bool indented);

/// Why a scene has no jobs: its drivers, none of which gives one, or that there are none; and how many nodes look like
/// drivers but were not recognised. One line.
QString whyNoJobs(const vxE::_explanation& explanation);

/// True for a section that gave no job, and that nobody misses in the job list: what was kept to be used by drivers,
/// the inner nodes of cameras, nodes that read files, and nodes outside out/ that have nothing of a driver but a part
/// of their path.
bool isAside(const vxE::_explainedSection& section);

/// True for a section that people miss in the job list: nothing came of it, and it is none of those above.
bool isSkippedDriver(const vxE::_explainedSection& section);

}  // namespace vxH
