// Work in a child process, so that a crash takes nothing else with it.
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

/// What came of the work: what it returned, or how the child ended.
struct _childResult {
    qint32 code = 0;    ///< below 0: a `_hostCode`, and there is no output; else the work's own
    QString failure;    ///< one line, "crashed (signal 11)"; empty when all went well
    QByteArray output;  ///< as the work makes it
};
using _childWork = std::function<_childResult()>;

/// Runs the work in a child process, which ends afterwards without any clean-up, and at once when this process ends.
/// What it writes to the standard output goes to the error stream.
_child startChild(const _childWork& work);

/// Waits for the child's result and for its end. Call it once for each child.
_childResult collectChild(const _child& child);

/// What a child that could not be started comes to.
_childResult resultWithoutChild(const _child& child);

/// What a child that has ended comes to.
/// @param sent    all that came through its pipe
/// @param status  as from `waitpid`
_childResult resultOfChild(const QByteArray& sent, int status);

}  // namespace vxH
