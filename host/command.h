// What every command of vxscene has in common: how it stands on the command line, and how its scenes fail.
#pragma once

#include <CLI/CLI.hpp>
#include <QJsonObject>
#include <functional>
#include <string>

#include "host/resultCodes.h"
#include "host/sceneLoad.h"

namespace vxH {

/// A command on the command line and what it does once the line has been read.
struct _command {
    CLI::App* line;
    std::function<int(const _submitterArguments&)> run;  ///< returns an `_exitStatus`
    int failure = exitFailed;                            ///< at least this where the output could not be written
};

// Each adds its command to the program.
_command addExplain(CLI::App& program);
_command addDiff(CLI::App& program);
_command addInfo(CLI::App& program);
_command addJobs(CLI::App& program);
_command addReport(CLI::App& program);
_command addVars(CLI::App& program);

/// Adds `--plugin`, with the plug-in beside this program where it is not given.
void addPluginOption(CLI::App& command, std::string& plugin);
/// Adds `--format text|json`.
void addTextOrJson(CLI::App& command, bool& asJson);

/// The error line of a plug-in that cannot be loaded. @return the exit status
int noPlugin(const QString& problem);
/// The error line of a scene that failed. @return the exit status
int sceneFailed(const QJsonObject& result);
/// The error line of output that cannot be written. @return the exit status
int outputLost();

}  // namespace vxH
