// Questions to the plug-in, each asked in a child process: every answer comes from fresh plug-in state.
#pragma once

#include <QJsonObject>
#include <functional>

#include "host/access/pluginLibrary.h"
#include "host/base/resultCodes.h"

namespace vxH {

struct _pluginAnswer {
    QJsonObject answer;  ///< what the question returned
    qint32 code = 0;     ///< 0, or a `_hostCode` when there is no answer
    QString failure;     ///< one line that says why there is none
};

/// Has a child process load the plug-in and work on the question, and waits for its answer.
_pluginAnswer askPlugin(const QString& pluginPath, const std::function<QJsonObject(const _pluginLibrary&)>& question);

}  // namespace vxH
