#include "host/text/checkText.h"

#include <algorithm>

#include "host/base/displayText.h"
#include "host/text/valueLine.h"

namespace vxH {
namespace {

constexpr int leastColumns = 9;

QString cell(const QString& text, const QString& title) {
    return text.rightJustified(std::max(leastColumns, static_cast<int>(title.size()))) + QLatin1Char(' ');
}

constexpr QLatin1String pairsTitle{"pairs"};
constexpr QLatin1String evaluatedTitle{"evaluated"};
constexpr QLatin1String timeTitle{"ms"};

QString rowOf(const _checkCounts& counts, const QString& scene) {
    QString row =
        cell(QString::number(counts.pairs), pairsTitle) + cell(QString::number(counts.evaluated), evaluatedTitle);
    for (const auto& verdict : counts.verdicts) row += cell(QString::number(verdict.count), verdict.name);
    return row + cell(QString::number(counts.milliseconds, 'f', 1), timeTitle) + QLatin1Char(' ') + printable(scene) +
           QLatin1Char('\n');
}

QString percent(qint64 part, qint64 whole) {
    return QString::number(whole == 0 ? 0.0 : 100.0 * double(part) / double(whole), 'f', 2) + QLatin1String{" %"};
}

}  // namespace

QString checkHeading(const _checkCounts& counts) {
    QString heading = cell(pairsTitle, pairsTitle) + cell(evaluatedTitle, evaluatedTitle);
    for (const auto& verdict : counts.verdicts) heading += cell(verdict.name, verdict.name);
    return heading + cell(timeTitle, timeTitle) + QLatin1String{" scene\n"};
}

QString checkRow(const _sceneCheck& check) {
    QString text = rowOf(check.counts, check.scene);
    for (const auto& one : check.channels)
        text += QLatin1String{"  "} + one.verdict + QLatin1String{": "} +
                printable(valueLine(
                    {one.node + QLatin1Char('/') + one.channel, one.expression, one.stored, one.value, one.reason})) +
                QLatin1Char('\n');
    return text;
}

QString checkSum(const _checkCounts& counts) {
    QString text = rowOf(counts, QStringLiteral("all"));
    text += QStringLiteral("evaluated: %1; of those that can be judged agree: %2\n")
                .arg(percent(counts.evaluated, counts.pairs), percent(counts.agree, counts.judged));
    if (!counts.reasons.empty()) text += QStringLiteral("no value:\n");
    for (const auto& reason : counts.reasons)
        text += cell(QString::number(reason.count), {}) + QLatin1Char(' ') + reason.name + QLatin1Char('\n');
    return text;
}

}  // namespace vxH
