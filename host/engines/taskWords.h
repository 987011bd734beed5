// Words of a table of commands, with names of values in square brackets: "-f", "[SceneFile]", "-frames=[First]-[Last]".
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "host/engines/submission.h"

namespace vxH {

/// Part of a word as a table has it.
struct _patternPiece {
    QString text;                         ///< as it stands, or the name of a text of the job
    bool isName = false;                  ///< the text is a name
    _taskValue value = _taskValue::none;  ///< that of the task instead
    int digits = 0;
};
using _wordPattern = std::vector<_patternPiece>;

/// Reads a word. "[[" stands for "[". A value of the task may have a number of digits: "[Frame:4]".
/// @param isJobText  whether a job has a text of that name
/// @param[out] problem  what is wrong with the word, in one line; empty: nothing
_wordPattern readPattern(const QString& word, const std::function<bool(const QString& name)>& isJobText,
                         QString& problem);

/// The word for one job. "<FN4>" in a text of the job stands for the frame of the task in four digits.
/// @param textOf  the job's text of that name
_taskWord fillIn(const _wordPattern& pattern, const std::function<QString(const QString& name)>& textOf);

/// Whether the word is another for each frame, so that a task can have no more than one.
bool namesAFrame(const _taskWord& word);

/// The word where it holds no value of the task.
std::optional<QString> plainText(const _taskWord& word);

}  // namespace vxH
