// Questions to the plug-in, each asked in a child process: every answer comes from fresh plug-in state.
#pragma once

#include <QJsonObject>
#include <functional>

#include "host/childProcess.h"
#include "host/pluginLibrary.h"

namespace vxH {

struct _pluginAnswer {
    QJsonObject answer;  ///< what the question returned
    qint32 code = 0;     ///< 0, or a `_hostCode` when there is no answer
    QString failure;     ///< one line that says why there is none
};

/// A question that a child process works on.
_child startQuestion(const QString& pluginPath, const std::function<QJsonObject(const _pluginLibrary&)>& question);
_pluginAnswer collectAnswer(const _child& child);

/// Both in one, for one question at a time.
_pluginAnswer askPlugin(const QString& pluginPath, const std::function<QJsonObject(const _pluginLibrary&)>& question);

}  // namespace vxH
