// A command's work over many scenes, printed: what `jobs` and its like have in common.
#pragma once

#include <QJsonObject>
#include <QString>
#include <functional>

#include "host/resultOutput.h"
#include "host/sceneOptions.h"

namespace vxH {

struct _sceneRun {
    QString fileFilter;  ///< which files of a folder are scenes: "*.hip;*.hipnc;"
    _format format = _format::table;
    /// Makes a scene's result, see host/sceneResult.h. It runs in a process of its own.
    std::function<QJsonObject(const QString& absoluteScenePath)> work;
    /// A result for people; it runs there too.
    _resultTable table;
};

/// Does the work for every scene and prints the results in the order of the scenes, with an error line for each that
/// fails. A signal that ends the program (see host/interrupt.h), and a reader of the output that is gone, end it here.
/// @return an `_exitStatus`
int runScenes(const _sceneOptions& options, const _sceneRun& run);

}  // namespace vxH
