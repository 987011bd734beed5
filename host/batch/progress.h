// How many scenes are done, or how much of a single one, in one line of a terminal that is drawn over and over.
#pragma once

#include <QString>
#include <chrono>
#include <optional>

#include "host/batch/sceneReading.h"

namespace vxH {

struct _progressState {
    qint64 done = 0;
    qint64 total = 0;           ///< found so far
    bool isTotalKnown = false;  ///< no more will be found
};

/// "[=====>     ] 120/240 scenes  45/s  0:03 left", or "120 scenes  45/s" where the total is not known.
/// @param seconds  since the beginning
/// @param width    columns, which the text is cut to
QString progressLine(const _progressState& state, double seconds, int width);

/// The same of a single scene: "[=====>     ] 0.4 of 1.3 GB read  0:03", the time being that since the beginning, or
/// nothing but the time where its file is not known.
QString readingLine(const _sceneReading& reading, double seconds, int width);

/// Draws the line on the error stream, ten times a second at most, and only where that is a terminal that can be drawn
/// on; a single scene has one when it takes longer than a second.
class _progress {
 public:
    explicit _progress(bool isWanted);
    ~_progress() { clear(); }
    _progress(const _progress&) = delete;
    _progress& operator=(const _progress&) = delete;

    bool isShown() const { return shown; }
    /// Takes the state and draws it when it is time.
    void update(const _progressState& state);
    /// True when it is time to show how far a single scene has been read.
    bool wantsReading() const { return shown && isSingle() && _clock::now() >= dueAt(); }
    void show(const _sceneReading& reading);
    /// Milliseconds until there is something to draw; none when nothing has changed.
    std::optional<std::chrono::milliseconds> dueIn() const;
    /// Removes the line, for other output.
    void clear();

 private:
    using _clock = std::chrono::steady_clock;

    bool isSingle() const { return latest.isTotalKnown && latest.total == 1 && latest.done == 0; }
    _clock::time_point dueAt() const;
    double secondsUntil(_clock::time_point now) const { return std::chrono::duration<double>(now - begin).count(); }
    void draw(const QString& text, _clock::time_point now);

    bool shown;
    bool isDrawn = false;
    bool isChanged = false;
    _progressState latest;
    _clock::time_point begin = _clock::now();
    _clock::time_point nextDrawing = begin;
};

}  // namespace vxH
