#include "host/text/jobDiffText.h"

#include <algorithm>

#include "host/base/displayText.h"
#include "host/results/jobCells.h"
#include "host/text/fieldChanges.h"

namespace vxH {
namespace {

struct _kind {
    QLatin1String word;
    QLatin1String colour;
};

constexpr _kind came{QLatin1String{"came"}, QLatin1String{"\x1b[32m"}};
constexpr _kind went{QLatin1String{"went"}, QLatin1String{"\x1b[31m"}};
constexpr _kind changed{QLatin1String{"changed"}, QLatin1String{"\x1b[33m"}};
constexpr int kindWidth = 7;
constexpr QLatin1String gap{"  "};
constexpr QLatin1String indent{"    "};

class _lines {
 public:
    _lines(const _sceneResult& oldScene, const _sceneResult& newScene, bool useColour)
        : before{oldScene}, now{newScene}, colour{useColour} {}

    void add(const _jobDifference& difference) {
        if (difference.hasCome()) {
            addWhole(came, now, difference.newNumber);
        } else if (difference.hasGone()) {
            addWhole(went, before, difference.oldNumber);
        } else {
            addChanged(difference);
        }
    }

    void addSummary(const _jobDiff& diff) {
        const auto count = [&](auto is) { return std::count_if(diff.differences.begin(), diff.differences.end(), is); };
        const auto cameCount = count([](const auto& difference) { return difference.hasCome(); });
        const auto wentCount = count([](const auto& difference) { return difference.hasGone(); });
        const auto changedCount = static_cast<std::ptrdiff_t>(diff.differences.size()) - cameCount - wentCount;
        lines += QStringLiteral("%1 came, %2 went, %3 changed, %4 unchanged")
                     .arg(cameCount)
                     .arg(wentCount)
                     .arg(changedCount)
                     .arg(diff.unchanged);
    }

    QStringList result() const { return lines; }

 private:
    void addJob(const _kind& kind, const QString& number, const _job& job, const QStringList& more) {
        QString line = inColour(kind.word, kind.colour) + QString{kindWidth - kind.word.size(), QLatin1Char(' ')} +
                       QLatin1Char(' ') + number;
        line += gap + inColour(printable(job.layer), driverColour);
        const QStringList cells = QStringList{rendererCell(job), job.channel} + more;
        for (const auto& cell : cells)
            if (!cell.isEmpty()) line += gap + printable(cell);
        lines += line;
    }

    void addWhole(const _kind& kind, const _sceneResult& scene, int number) {
        const auto& job = jobNumbered(scene, number);
        addJob(kind, QString::number(number), job, {framesCell(job), outputCell(job, scene.scene)});
    }

    void addChanged(const _jobDifference& difference) {
        const QString was = difference.oldNumber == difference.newNumber
                                ? QString{}
                                : QStringLiteral(" (was %1)").arg(difference.oldNumber);
        addJob(changed, QString::number(difference.newNumber) + was, jobNumbered(now, difference.newNumber), {});
        for (const auto& change : fieldChanges(difference, before, now)) {
            lines += indent + change.name + QLatin1String{": "} + printable(change.before) + QLatin1String{" -> "} +
                     printable(change.now);
        }
    }

    QString inColour(const QString& text, QLatin1String sequence) const {
        return coloured(text, colour ? sequence : QLatin1String{});
    }

    const _sceneResult& before;
    const _sceneResult& now;
    bool colour;
    QStringList lines;
};

}  // namespace

QStringList diffLines(const _jobDiff& diff, const _sceneResult& before, const _sceneResult& now,
                      const _terminal& terminal) {
    _lines lines{before, now, terminal.colour};
    for (const auto& difference : diff.differences) lines.add(difference);
    lines.addSummary(diff);
    return lines.result();
}

}  // namespace vxH
