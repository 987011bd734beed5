// A command's work on many scenes: what `jobs` and similar commands have in common.
#pragma once

#include <QString>
#include <functional>

#include "host/commands/resultOutput.h"
#include "host/commands/sceneOptions.h"

namespace vxH {

/// Which scenes there are and how one is loaded, in a child process.
struct _sceneSource {
    QString fileFilter;  ///< which files of a folder are scenes: "*.hip;*.hipnc;"
    std::function<_explainedScene(const QString& absoluteScenePath)> load;
};

/// What becomes of the results.
struct _sceneUse {
    /// What of a result is handed on; it runs in the child process.
    std::function<QByteArray(const _explainedScene& scene)> pack;
    /// Gets it, in the order of the scenes. @return false to end the run
    std::function<bool(const QByteArray& packed)> take;
    std::function<bool()> finish;  ///< after the last one. @return false when that failed
    bool printsToTerminal = false;
};

/// Loads every scene and hands its result on, with an error line for each that fails and a progress line. A signal that
/// ends the program (see host/base/interrupt.h), and a reader of the output that is gone, end it here.
/// @return an `_exitStatus`
int runScenes(const _sceneOptions& options, const _sceneSource& source, const _sceneUse& use);

/// Prints the results to the standard output.
int printScenes(const _sceneOptions& options, const _sceneSource& source, const _resultFormat& format);

}  // namespace vxH
