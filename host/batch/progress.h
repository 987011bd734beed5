// How many scenes are done, in one line of a terminal that is drawn over and over.
#pragma once

#include <QString>
#include <chrono>
#include <optional>

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

/// Draws the line on the error stream, ten times a second at most, and only where that is a terminal that can be drawn
/// on. A single scene has no progress.
class _progress {
 public:
    explicit _progress(bool isWanted);
    ~_progress() { clear(); }
    _progress(const _progress&) = delete;
    _progress& operator=(const _progress&) = delete;

    bool isShown() const { return shown; }
    /// Takes the state and draws it when it is time.
    void update(const _progressState& state);
    /// Milliseconds until there is something to draw; none when nothing has changed.
    std::optional<std::chrono::milliseconds> dueIn() const;
    /// Removes the line, for other output.
    void clear();

 private:
    using _clock = std::chrono::steady_clock;

    bool shown;
    bool isDrawn = false;
    bool isChanged = false;
    _progressState latest;
    _clock::time_point begin = _clock::now();
    _clock::time_point nextDrawing = begin;
};

}  // namespace vxH
