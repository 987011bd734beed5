// Scenes as submissions to an engine: what the commands have in common that make such.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>

#include "host/commands/command.h"
#include "host/commands/sceneOptions.h"
#include "host/engines/engine.h"
#include "host/engines/sceneSubmission.h"

namespace vxH {

struct _submissionOptions {
    _sceneOptions scenes;
    std::string commands;  ///< file with a table; empty: none is named
    std::vector<_frameRange> frames;
    std::vector<_frameRange> jobs;
    int framesPerTask = 0;  ///< 0: as the table says
    bool skipsInvalid = false;
    bool onlyMissing = false;  ///< only the frames of which files are missing on the disk
};

/// A scene as the engine reads it.
struct _exportedScene : _sceneHead {
    QString name;         ///< of the submission
    QByteArray text;      ///< empty: there is nothing to run
    QStringList plan;     ///< see planLines
    QStringList notes;    ///< a line for each job of which it is not known what is missing
    QStringList refused;  ///< a line for each job that the engine cannot be told of
};

/// Adds the options and the scenes. @param options  have to outlive the command
void addSubmissionOptions(_command& command, _submissionOptions& options);

/// Plans each scene and hands on those that the engine can run: not those with refused jobs, unless these are skipped.
/// What is refused is told on the error stream.
/// @param take      returns false to end the run
/// @return an `_exitStatus`
int exportScenes(const _submissionOptions& options, const _engine& engine, const _submitterArguments& submitter,
                 const std::function<bool(const _exportedScene&)>& take);

}  // namespace vxH
