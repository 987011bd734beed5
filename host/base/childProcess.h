// Work in a process of its own, so that a crash takes nothing else along.
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QString>
#include <functional>

#include "host/base/resultCodes.h"

namespace vxH {

/// A running child process and the pipe that its result comes through.
struct _child {
    pid_t process = -1;  ///< -1: it could not be started
    int pipe = -1;
    QString problem;  ///< why it could not be started
};

struct _childResult {
    QByteArray output;  ///< what the work returned; empty after a failure
    qint32 code = 0;    ///< 0, hostCrashed or hostNoResult
    QString failure;    ///< "crashed (signal 11)"; empty when all went well
};

/// Runs the work in a child process, which ends afterwards without any clean-up, and at once when this process ends.
/// What it writes to the standard output comes out of the error stream. The work has to return at least one byte.
_child startChild(const std::function<QByteArray()>& work);

/// Waits for the child's result and for its end. Call it once for each child.
_childResult collectChild(const _child& child);

/// What a child that could not be started comes to.
_childResult resultWithoutChild(const _child& child);

/// What a child that has ended comes to.
/// @param status  as from `waitpid`
_childResult resultOfChild(const QByteArray& output, int status);

}  // namespace vxH
