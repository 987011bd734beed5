#include "host/batch/progress.h"

#include <unistd.h>

#include <QtGlobal>
#include <algorithm>

#include "host/base/descriptorWrite.h"
#include "host/base/terminal.h"

namespace vxH {
namespace {

constexpr std::chrono::milliseconds pause{100};  // between two drawings
constexpr std::chrono::seconds patience{1};      // before a single scene is told of
constexpr int widestBar = 30;
constexpr int narrowestBar = 5;
constexpr int barFrame = 3;  // brackets and the blank after them
constexpr double megabyte = 1e6;
constexpr double gigabyte = 1e9;
constexpr const char* clearedLine = "\r\x1b[K";

QString rateText(double perSecond) {
    const bool isSlow = perSecond < 10;  // two digits are enough
    return QString::number(perSecond, isSlow ? 'g' : 'f', isSlow ? 2 : 0) + QLatin1String{"/s"};
}

/// "0:03", "1:02:03"
QString durationText(double seconds) {
    const auto whole = qRound64(seconds);
    const auto twoDigits = [](qint64 number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    const auto hours = whole / 3600;
    const auto minutes = whole / 60 % 60;
    const auto start =
        hours > 0 ? QString::number(hours) + QLatin1Char(':') + twoDigits(minutes) : QString::number(minutes);
    return start + QLatin1Char(':') + twoDigits(whole % 60);
}

QString barText(double share, int cells) {
    const int filled = static_cast<int>(share * cells);
    QString bar{filled, QLatin1Char('=')};
    if (filled < cells) bar += QLatin1Char('>');
    return QLatin1Char('[') + bar.leftJustified(cells) + QLatin1String{"] "};
}

/// Columns for the line: the last one would wrap.
int lineWidth() {
    return terminalWidth(STDERR_FILENO) - 1;
}

/// The line with as wide a bar as there is room for.
QString withBar(const QString& text, double share, int width) {
    const int cells = std::min(widestBar, width - barFrame - static_cast<int>(text.size()));
    return cells >= narrowestBar ? barText(share, cells) + text : text.left(width);
}

}  // namespace

QString progressLine(const _progressState& state, double seconds, int width) {
    const auto done = static_cast<double>(state.done);
    auto text = QString::number(state.done);
    if (state.isTotalKnown) text += QLatin1Char('/') + QString::number(state.total);
    text += QLatin1String{" scenes"};
    const bool hasRate = state.done > 0 && seconds > 0;
    if (hasRate) text += QLatin1String{"  "} + rateText(done / seconds);
    if (!state.isTotalKnown) return text.left(width);
    if (hasRate) {
        const auto left = static_cast<double>(state.total - state.done) * seconds / done;
        text += QLatin1String{"  "} + durationText(left) + QLatin1String{" left"};
    }
    return withBar(text, done / static_cast<double>(state.total), width);
}

QString readingLine(const _sceneReading& reading, double seconds, int width) {
    const auto time = durationText(seconds);
    if (reading.size <= 0) return time.left(width);
    const auto read = static_cast<double>(std::min(reading.read, reading.size));
    const auto size = static_cast<double>(reading.size);
    const bool isLarge = size >= gigabyte;
    const auto inUnit = [&](double bytes) {
        return QString::number(bytes / (isLarge ? gigabyte : megabyte), 'f', isLarge ? 1 : 0);
    };
    const auto text = QStringLiteral("%1 of %2 %3 read  %4")
                          .arg(inUnit(read), inUnit(size), QLatin1String{isLarge ? "GB" : "MB"}, time);
    return withBar(text, read / size, width);
}

_progress::_progress(bool isWanted) : shown(isWanted && canBeRedrawn(STDERR_FILENO)) {
}

void _progress::update(const _progressState& state) {
    if (!shown) return;
    isChanged = isChanged || state.done != latest.done || state.isTotalKnown != latest.isTotalKnown;
    latest = state;
    const auto now = _clock::now();
    if (!isChanged || now < nextDrawing || state.total <= 1) return;
    draw(progressLine(state, secondsUntil(now), lineWidth()), now);
}

void _progress::show(const _sceneReading& reading) {
    const auto now = _clock::now();
    draw(readingLine(reading, secondsUntil(now), lineWidth()), now);
}

void _progress::draw(const QString& text, _clock::time_point now) {
    writeAll(STDERR_FILENO, clearedLine + text.toUtf8());
    isDrawn = true;
    isChanged = false;
    nextDrawing = now + pause;
}

_progress::_clock::time_point _progress::dueAt() const {
    return isSingle() ? std::max(nextDrawing, begin + patience) : nextDrawing;
}

std::optional<std::chrono::milliseconds> _progress::dueIn() const {
    if (!shown || (!isSingle() && (!isChanged || latest.total <= 1))) return {};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(dueAt() - _clock::now());
    return std::max(left + std::chrono::milliseconds{1}, std::chrono::milliseconds{0});
}

void _progress::clear() {
    if (!isDrawn) return;
    writeAll(STDERR_FILENO, clearedLine);
    isDrawn = false;
    isChanged = true;
}

}  // namespace vxH
