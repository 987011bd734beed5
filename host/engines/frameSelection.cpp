#include "host/engines/frameSelection.h"

#include <QRegularExpression>
#include <algorithm>
#include <numeric>

namespace vxH {
namespace {

_frameRange endingWithAFrame(_frameRange range) {
    range.last = range.first + (range.count() - 1) * range.step;
    return range;
}

std::optional<_frameRange> readRange(const QString& text) {
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("(-?[0-9]{1,10})(?:-(-?[0-9]{1,10})(?:x([0-9]{1,10}))?)?")));
    const auto match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const qint64 first = match.captured(1).toLongLong();
    const qint64 last = match.captured(2).isEmpty() ? first : match.captured(2).toLongLong();
    const qint64 step = match.captured(3).isEmpty() ? 1 : match.captured(3).toLongLong();
    const bool isFine = first <= last && step > 0 && step <= mostFrame && first >= -mostFrame && last <= mostFrame;
    if (!isFine) return std::nullopt;
    return endingWithAFrame({first, last, step});
}

}  // namespace

std::optional<std::vector<_frameRange>> readRanges(const QString& text) {
    const auto parts = text.split(QLatin1Char(','));
    std::vector<_frameRange> ranges;
    ranges.reserve(static_cast<std::size_t>(parts.size()));
    for (const QString& part : parts) {
        const auto range = readRange(part);
        if (!range) return std::nullopt;
        ranges.push_back(*range);
    }
    return ranges;
}

std::optional<_frameRange> commonFrames(const _frameRange& range, const _frameRange& other) {
    const qint64 begin = std::max(range.first, other.first);
    const qint64 end = std::min(range.last, other.last);
    qint64 frame = range.first + (begin - range.first + range.step - 1) / range.step * range.step;
    const qint64 different = other.step / std::gcd(range.step, other.step);  // so many frames, then all repeats
    for (qint64 tried = 1; tried < different && frame <= end && (frame - other.first) % other.step != 0; ++tried)
        frame += range.step;
    if (frame > end || (frame - other.first) % other.step != 0) return std::nullopt;
    return endingWithAFrame({frame, end, std::lcm(range.step, other.step)});
}

std::vector<_frameRange> commonFrames(const std::vector<_frameRange>& ranges, const std::vector<_frameRange>& others) {
    std::vector<_frameRange> common;
    for (const auto& range : ranges)
        for (const auto& other : others)
            if (const auto both = commonFrames(range, other)) common.push_back(*both);
    return common;
}

}  // namespace vxH
