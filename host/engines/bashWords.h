// Commands of tasks as bash runs them.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>

#include "host/engines/submission.h"

namespace vxH {

/// A word for bash, in which the variables FIRST, LAST and STEP hold the task's values:
/// `'/a b/c.'"$(printf %04d "$FIRST")".ifd`. The text has no line end in it.
QString bashWord(const _taskWord& word);

/// The command with its environment: `env 'A=1' hython -c '...'`.
QString bashCommand(const _farmStep& step);

/// The steps for a script with a function `step`: for each a comment, `step NUMBER NAME FIRST LAST STEP
/// FRAMES-OF-A-TASK` with the words that the engine adds, and its command as what the function reads.
/// @param more  words of the engine, quoted
QByteArray bashSteps(const _submission& submission, const std::function<QStringList(const _farmStep&)>& more);

/// What a step waits for, by the numbers of the others from 1: "all:3", "each:3" frame by frame.
QStringList bashWaits(const _farmStep& step);

/// One line that says what a step is, for a comment: "job 2  /out/mantra1, take closeup: frames 1001-1100, 100 tasks".
QString describedForComment(const _farmStep& step);

/// And what a submission is: "turntable: 18 steps, 1412 tasks, of /a/turntable.hip".
QString headlineForComment(const _submission& submission);

}  // namespace vxH
