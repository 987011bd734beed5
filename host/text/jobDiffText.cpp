#include "host/text/jobDiffText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <array>

#include "host/base/displayText.h"
#include "host/diff/jobMatch.h"
#include "host/results/jobCells.h"
#include "host/results/sceneResult.h"

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

/// What `framesCell` shows.
constexpr std::array frameFields{QLatin1String{"seqStart"}, QLatin1String{"seqEnd"}, QLatin1String{"seqStep"},
                                 QLatin1String{"seqFrameSet"}};

QString listText(const QJsonArray& list, const QJsonArray& other) {
    QJsonArray own;
    for (const auto& entry : list)
        if (!other.contains(entry)) own.append(entry);
    return QString::fromUtf8(QJsonDocument(own).toJson(QJsonDocument::Compact));
}

/// @param other  what it is shown beside
QString valueText(const QJsonValue& value, const QJsonValue& other) {
    switch (value.type()) {
        case QJsonValue::String:
            return value.toString().isEmpty() ? QStringLiteral("\"\"") : value.toString();
        case QJsonValue::Double:
            return QString::number(value.toDouble(), 'g', 15);
        case QJsonValue::Bool:
            return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
        case QJsonValue::Array:
            return listText(value.toArray(), other.toArray());
        default:
            return QStringLiteral("?");
    }
}

/// One of the two scenes.
struct _scene {
    explicit _scene(const QJsonObject& sceneResult)
        : result{sceneResult}, cells{sceneResult}, waitedFor{waitedForJobs(sceneResult)} {}

    QJsonObject job(int number) const { return jobNumbered(result, number); }

    /// "2 /out/mantra1, id 44": the jobs with their drivers, and the number itself where no job has it.
    QString waitsText(int number) const {
        QStringList texts;
        const auto preIDs = job(number)[QLatin1String{"waitForPreIDs"}].toArray();
        for (const int index : waitedFor[static_cast<std::size_t>(number - 1)]) {
            const int preID = preIDs[static_cast<int>(texts.size())].toInt();
            texts += index == noJob ? QStringLiteral("id %1").arg(preID)
                                    : QString::number(index + 1) + QLatin1Char(' ') + driverCell(job(index + 1));
        }
        return texts.isEmpty() ? QStringLiteral("none") : texts.join(QLatin1String{", "});
    }

    const QJsonObject& result;
    _cellScene cells;
    std::vector<std::vector<int>> waitedFor;
};

class _lines {
 public:
    _lines(const QJsonObject& oldResult, const QJsonObject& newResult, bool useColour)
        : before{oldResult}, now{newResult}, colour{useColour} {}

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
    void addJob(const _kind& kind, const QString& number, const QJsonObject& job, const QStringList& more) {
        QString line = inColour(kind.word, kind.colour) + QString{kindWidth - kind.word.size(), QLatin1Char(' ')} +
                       QLatin1Char(' ') + number;
        line += gap + inColour(printable(driverCell(job)), driverColour);
        const QStringList cells = QStringList{rendererCell(job), job[QLatin1String{"channel"}].toString()} + more;
        for (const auto& cell : cells)
            if (!cell.isEmpty()) line += gap + printable(cell);
        lines += line;
    }

    void addWhole(const _kind& kind, const _scene& scene, int number) {
        const auto job = scene.job(number);
        addJob(kind, QString::number(number), job, {framesCell(job), outputCell(job, scene.cells)});
    }

    void addChanged(const _jobDifference& difference) {
        const auto oldJob = before.job(difference.oldNumber);
        const auto newJob = now.job(difference.newNumber);
        const QString was = difference.oldNumber == difference.newNumber
                                ? QString{}
                                : QStringLiteral(" (was %1)").arg(difference.oldNumber);
        addJob(changed, QString::number(difference.newNumber) + was, newJob, {});
        const bool framesTell = framesCell(oldJob) != framesCell(newJob);
        if (framesTell) addField(QStringLiteral("frames"), framesCell(oldJob), framesCell(newJob));
        for (const auto& field : difference.fields) {
            const bool isFrames = std::find(frameFields.begin(), frameFields.end(), field.name) != frameFields.end();
            if (isFrames && framesTell) continue;
            if (field.name == QLatin1String{"waitForPreIDs"}) {
                addField(field.name, before.waitsText(difference.oldNumber), now.waitsText(difference.newNumber));
            } else {
                addField(field.name, valueText(field.before, field.now), valueText(field.now, field.before));
            }
        }
    }

    void addField(const QString& name, const QString& old, const QString& current) {
        lines += indent + name + QLatin1String{": "} + printable(old) + QLatin1String{" -> "} + printable(current);
    }

    QString inColour(const QString& text, QLatin1String sequence) const {
        return coloured(text, colour ? sequence : QLatin1String{});
    }

    _scene before;
    _scene now;
    bool colour;
    QStringList lines;
};

}  // namespace

QStringList diffLines(const _jobDiff& diff, const QJsonObject& oldResult, const QJsonObject& newResult,
                      const _terminal& terminal) {
    _lines lines{oldResult, newResult, terminal.colour};
    for (const auto& difference : diff.differences) lines.add(difference);
    lines.addSummary(diff);
    return lines.result();
}

}  // namespace vxH
