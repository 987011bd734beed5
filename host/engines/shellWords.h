// Commands of tasks as lines for a POSIX shell, which reads every word as it was meant.
#pragma once

#include <QString>
#include <vector>

#include "host/engines/submission.h"

namespace vxH {

/// The text as one word for every POSIX shell: as it is where no shell sees anything in it, otherwise in single quotes.
/// @param text  any characters but NUL
QString posixQuoted(const QString& text);

/// How a line writes the parts of a word, each as a part that another may follow.
struct _shellDialect {
    QString (*quoted)(const QString& text);
    QString first;  ///< first frame of the task: `"$FIRST"`
    QString last;   ///< last frame of the task
    QString step;
};

QString shellWord(const _taskWord& word, const _shellDialect& dialect);

/// A command with its environment: `env A=1 hython -c '...'`.
QString shellCommand(const std::vector<_taskSetting>& environment, const std::vector<_taskWord>& command,
                     const _shellDialect& dialect);

}  // namespace vxH
