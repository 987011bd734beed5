// The same work for many scenes, each in a child process, some of them side by side.
#pragma once

#include <QString>
#include <chrono>
#include <functional>

#include "host/base/childProcess.h"
#include "host/batch/progress.h"
#include "host/batch/sceneList.h"

namespace vxH {

/// What is done with a scene, in its own process.
using _batchWork = std::function<_childResult(const QString& absoluteScenePath)>;

struct _batchLimits {
    int parallel = 1;                      ///< scenes at a time
    std::chrono::milliseconds timeout{0};  ///< for each scene; 0: none
    int window = 0;                        ///< scenes that may be begun before the first of them is received

    /// Room for a scene that takes as long as many others together.
    static constexpr int windowFor(int parallel) { return 64 * parallel; }
};

/// What one scene, or an entry of the list without a scene, came to.
struct _batchResult {
    QString scene;  ///< absolute path; for an unusable one as far as it can be shown
    _childResult result;
    bool isScene = true;
};

/// Takes the results in the order of the list. @return false to end the batch
using _batchReceiver = std::function<bool(const _batchResult&)>;

/// Runs the work for all scenes of the list. A result is received as soon as it and all before it are there; finished
/// ones that wait for another are few (`window`) and no further scene is begun while they take 64 MiB.
/// Nothing is left running at the end. The receiver is called with signals open, see host/base/interrupt.h.
/// @return 0, or the signal that ended it early
int runBatch(_sceneList& scenes, const _batchWork& work, const _batchLimits& limits, _progress& progress,
             const _batchReceiver& receive);

}  // namespace vxH
