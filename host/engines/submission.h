// A scene's jobs as a farm's engine is told of them: steps of tasks that wait for one another.
#pragma once

#include <QString>
#include <vector>

#include "host/results/frameRange.h"
#include "host/results/job.h"

namespace vxH {

/// What the engine fills in when a task starts. `frame` is the task's first one: of a task of one frame, the frame.
enum class _taskValue { none, first, last, step, frame };

/// Part of a word: its text, or a value of the task.
struct _wordPiece {
    QString text;  ///< with `_taskValue::none`
    _taskValue value = _taskValue::none;
    int digits = 0;  ///< of a value: filled with zeros to so many, as "%04d" does; 0: as it is

    bool operator==(const _wordPiece&) const = default;
};

/// A word of a command or a value of the environment; any characters but NUL. Its pieces follow each other without gap.
using _taskWord = std::vector<_wordPiece>;

struct _taskSetting {
    QString name;  ///< of a variable of the environment: letters, digits and "_"
    _taskWord value;
};

/// An earlier step that has to end first.
struct _stepWait {
    int step;             ///< its place in the submission
    bool isFrameByFrame;  ///< both have the same frames in the same tasks: each task waits for its partner alone

    bool operator==(const _stepWait&) const = default;
};

/// What a job comes to on a farm: one command, run once for each of its tasks.
struct _farmStep {
    QString name;    ///< unique in the submission, within the engine's limits
    QString driver;  ///< full path of the node, with any characters
    QString take;    ///< empty: the main one
    int job = 0;     ///< number of the job, from 1
    _frameRange frames;
    qint64 framesPerTask = 1;  ///< at least 1; the last task may have fewer
    std::vector<_taskWord> command;
    std::vector<_taskSetting> environment;
    int cores = 1;
    qint64 memoryMB = 0;           ///< 0: not said
    int minutes = 0;               ///< that a task may take; 0: not said
    QString licence;               ///< token that a running task holds; empty: none
    std::vector<_stepWait> waits;  ///< for earlier steps, in their order, each once

    qint64 taskCount() const { return (frames.count() + framesPerTask - 1) / framesPerTask; }
};

/// @param task  from 0
_frameRange framesOfTask(const _farmStep& step, qint64 task);

/// Whether the steps have the same frames in the same tasks.
bool areChunkedAlike(const _farmStep& step, const _farmStep& other);

/// One for each scene.
struct _submission {
    QString name;                  ///< within the engine's limits
    QString scene;                 ///< absolute path
    std::vector<_farmStep> steps;  ///< a step comes after those that it waits for
};

}  // namespace vxH
