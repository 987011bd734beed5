#include "host/text/fieldChanges.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>
#include <algorithm>
#include <array>

#include "host/results/jobCells.h"

namespace vxH {
namespace {

constexpr QLatin1String waitsField{"waitForPreIDs"};

/// What `framesCell` shows.
constexpr std::array frameFields{QLatin1String{"seqStart"}, QLatin1String{"seqEnd"}, QLatin1String{"seqStep"},
                                 QLatin1String{"seqFrameSet"}};

bool isFrames(const _jobField& field) {
    return std::find(frameFields.begin(), frameFields.end(), field.name) != frameFields.end();
}

QString listText(const QJsonArray& list, const QJsonArray& other) {
    QJsonArray own;
    for (const auto& entry : list)
        if (!other.contains(entry)) own.append(entry);
    return QString::fromUtf8(QJsonDocument(own).toJson(QJsonDocument::Compact));
}

/// @param other  what it is shown beside
QString valueText(const QJsonValue& value, const QJsonValue& other) {
    if (value.isString()) return value.toString().isEmpty() ? QStringLiteral("\"\"") : value.toString();
    if (value.isDouble()) return QString::number(value.toDouble(), 'g', 15);
    if (value.isBool()) return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    return value.isArray() ? listText(value.toArray(), other.toArray()) : QStringLiteral("?");
}

/// The jobs with their drivers, and the own number itself where no job has it.
QString waitsText(const _job& job, const _sceneResult& scene) {
    QStringList texts;
    for (std::size_t i = 0; i < job.waitsFor.size(); ++i) {
        const int number = job.waitsFor[i] + 1;
        texts += job.waitsFor[i] == noJob
                     ? QStringLiteral("id %1").arg(job.waitForPreIDs[i])
                     : QString::number(number) + QLatin1Char(' ') + jobNumbered(scene, number).layer;
    }
    return texts.isEmpty() ? QStringLiteral("none") : texts.join(QLatin1String{", "});
}

}  // namespace

std::vector<_fieldChange> fieldChanges(const _jobDifference& difference, const _sceneResult& before,
                                       const _sceneResult& now) {
    const auto& oldJob = jobNumbered(before, difference.oldNumber);
    const auto& newJob = jobNumbered(now, difference.newNumber);
    std::vector<_fieldChange> changes;
    const auto oldFrames = framesCell(oldJob);
    const auto newFrames = framesCell(newJob);
    const bool framesTell = oldFrames != newFrames;
    if (framesTell) changes.push_back({QStringLiteral("frames"), oldFrames, newFrames});
    for (const auto* const field : difference.fields) {
        if (framesTell && isFrames(*field)) continue;
        if (field->name == waitsField) {
            changes.push_back({field->name, waitsText(oldJob, before), waitsText(newJob, now)});
        } else {
            const auto oldValue = field->toJson(oldJob);
            const auto newValue = field->toJson(newJob);
            changes.push_back({field->name, valueText(oldValue, newValue), valueText(newValue, oldValue)});
        }
    }
    return changes;
}

}  // namespace vxH
