#include "host/results/frameRange.h"

#include <QStringList>

namespace vxH {
namespace {

constexpr std::size_t leastInRange = 3;  // "1,5" says more than "1-5x4"

/// Makes ranges of single places, from each the longest that begins there.
class _singles {
 public:
    _singles(const _frameRange& whole, _frameList& list) : range(whole), frames(list) {}

    void add(qint64 place) { places.push_back(place); }

    void flush() {
        for (std::size_t at = 0; at < places.size();) {
            const std::size_t length = lengthFrom(at);
            const std::size_t last = at + length - 1;
            const qint64 step = length == 1 ? 1 : (places[at + 1] - places[at]) * range.step;
            frames.push_back({frameAt(places[at]), frameAt(places[last]), step});
            at += length;
        }
        places.clear();
    }

 private:
    qint64 frameAt(qint64 place) const { return range.first + place * range.step; }

    /// Of places with equal distances; 1 for fewer than make a range.
    std::size_t lengthFrom(std::size_t at) const {
        if (at + leastInRange > places.size()) return 1;
        std::size_t end = at + 2;
        while (end < places.size() && places[end] - places[end - 1] == places[at + 1] - places[at]) ++end;
        return end - at < leastInRange ? 1 : end - at;
    }

    const _frameRange& range;
    _frameList& frames;
    std::vector<qint64> places;
};

}  // namespace

_frameList foldedFrames(const _frameRange& range, const std::vector<_frameRun>& runs) {
    _frameList frames;
    _singles singles(range, frames);
    for (const auto& [first, last] : runs) {
        const bool isRange = last - first + 1 >= (range.step == 1 ? 2 : qint64{leastInRange});
        if (isRange) {
            singles.flush();
            frames.push_back({range.first + first * range.step, range.first + last * range.step, range.step});
        } else {
            for (qint64 place = first; place <= last; ++place) singles.add(place);
        }
    }
    singles.flush();
    return frames;
}

qint64 countOf(const _frameList& frames) {
    qint64 sum = 0;
    for (const auto& range : frames) sum += range.count();
    return sum;
}

QString frameListText(const _frameList& frames) {
    QStringList texts;
    for (const auto& range : frames) {
        QString text = QString::number(range.first);
        if (range.last != range.first) text += QLatin1Char('-') + QString::number(range.last);
        if (range.last != range.first && range.step != 1) text += QLatin1Char('x') + QString::number(range.step);
        texts.append(text);
    }
    return texts.join(QLatin1Char(','));
}

}  // namespace vxH
