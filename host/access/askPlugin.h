// Questions to the plug-in, each asked in a child process: every answer comes from fresh plug-in state.
#pragma once

#include <functional>

#include "host/access/pluginLibrary.h"
#include "host/base/childProcess.h"
#include "host/results/pluginInfo.h"

namespace vxH {

/// Has a child process load the plug-in and work on the question, and waits for its answer.
/// @return code 0 with the answer; or a `_hostCode` when there is none
_childResult askPlugin(const QString& pluginPath, const std::function<QByteArray(const _pluginLibrary&)>& question);

/// What came of asking for the plug-in's info record.
struct _infoAnswer {
    _pluginInfo info;
    qint32 code = 0;  ///< 0, or a `_hostCode` when there is no answer
    QString failure;  ///< one line that says why there is none
};
_infoAnswer askForInfo(const QString& pluginPath);

}  // namespace vxH
