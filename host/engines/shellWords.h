// Commands of tasks as lines for a POSIX shell, which reads every word as it was meant.
#pragma once

#include <QLatin1String>
#include <QString>

#include "host/engines/submission.h"

namespace vxH {

/// The text as one word for every POSIX shell: as it is where no shell sees anything in it, otherwise in single quotes.
/// @param text  any characters but NUL
QString posixQuoted(const QString& text);

/// How a line names what only the running task knows.
struct _shellDialect {
    QString (*quoted)(const QString& text);
    QLatin1String first;  ///< first frame of the task, as a part of a word: `"$first"`
    QLatin1String last;   ///< last frame of the task
};

/// @param step  the step that the word belongs to: its frames' step is known before any task runs
QString shellWord(const _taskWord& word, const _farmStep& step, const _shellDialect& dialect);

/// The words of the step's command, with a blank between them.
QString shellCommand(const _farmStep& step, const _shellDialect& dialect);

}  // namespace vxH
