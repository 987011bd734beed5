// A command's work over many scenes, printed: what `jobs` and its like have in common.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <functional>

#include "host/commands/resultOutput.h"
#include "host/commands/sceneOptions.h"

namespace vxH {

/// Makes a scene's result, see host/results/sceneResult.h.
using _sceneWork = std::function<QJsonObject(const QString& absoluteScenePath)>;

struct _sceneRun {
    QString fileFilter;  ///< which files of a folder are scenes: "*.hip;*.hipnc;"
    _sceneWork work;     ///< runs in a process of its own
    /// What of a result is handed on; it runs there too.
    std::function<QByteArray(const QJsonObject& result)> pack;
    /// Gets it, in the order of the scenes. @return false to end the run
    std::function<bool(const QByteArray& packed)> take;
    std::function<bool()> finish;  ///< after the last one. @return false when that failed
    bool printsToTerminal = false;
};

/// Does the work for every scene, with an error line for each that fails and a progress line. A signal that ends the
/// program (see host/base/interrupt.h), and a reader of the output that is gone, end it here.
/// @return an `_exitStatus`
int runScenes(const _sceneOptions& options, const _sceneRun& run);

/// Prints the results to the standard output.
/// @param table  a result for people
int printScenes(const _sceneOptions& options, const QString& fileFilter, const _sceneWork& work, _format format,
                const _resultTable& table);

/// Keeps the results.
/// @param[out] results  of all scenes, failed ones too
int collectScenes(const _sceneOptions& options, const QString& fileFilter, const _sceneWork& work, QJsonArray& results);

}  // namespace vxH
