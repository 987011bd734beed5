// A scene's jobs as a table for people.
#pragma once

#include <QStringList>

#include "host/base/terminal.h"
#include "host/results/sceneResult.h"

namespace vxH {

/// "/abs/scene.hip: Houdini 19.5.640, 14 jobs"; without a version where no job is Houdini's own.
QString sceneSummary(const _sceneResult& result);

/// Heading and one line per job; no lines without jobs. Every line fits the terminal's width: texts are elided, and
/// on a narrow terminal columns are left out, the driver's last. Characters that could steer a terminal become "?".
QStringList jobTable(const _sceneResult& result, const _terminal& terminal);

/// Both and what resolving would change as text, each line with its end; empty for a scene that failed without jobs.
QString jobText(const _sceneResult& result, const _terminal& terminal);

}  // namespace vxH
