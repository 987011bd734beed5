// A scene's jobs as a table for people.
#pragma once

#include <QStringList>

#include "host/base/submitterArguments.h"
#include "host/base/terminal.h"
#include "host/results/explainedScene.h"
#include "host/text/jobColumns.h"

namespace vxH {

struct _tableOptions {
    std::vector<_jobColumn> columns{};  ///< none: the usual ones, of which those without room are left out
    bool isWide = false;                ///< whole, whatever room there is
};

/// "/abs/scene.hip: Houdini 19.5.640, 14 jobs"; without a version where no job is Houdini's own.
QString sceneSummary(const _sceneResult& result);

/// Heading and one line per job; no lines without jobs. Every line fits the terminal's width. Where room is short, the
/// folders that paths share and the values that all jobs have are said in a line above the table; then paths are elided
/// and columns left out, and a line below tells which. Jobs that a warning is about have a "!" behind their numbers,
/// odd values one before them. Characters that could steer a terminal become "?".
QStringList jobTable(const _explainedScene& scene, const _tableOptions& options, const _terminal& terminal);

/// Both as text, each line with its end. Below, for an explained scene, how many warnings there are and what gave no
/// job, with the command that tells more, and what resolving would change. Empty for a scene that failed without jobs
/// and is not explained.
QString jobText(const _explainedScene& scene, const _submitterArguments& submitter, const _tableOptions& options,
                const _terminal& terminal);

}  // namespace vxH
