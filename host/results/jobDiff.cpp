#include "host/results/jobDiff.h"

#include <QJsonArray>

namespace vxH {
namespace {

QJsonObject changedToJson(const _jobDifference& difference, const _job& before, const _job& now) {
    QJsonArray fields;
    for (const auto* const field : difference.fields) {
        fields.append(QJsonObject{{QLatin1String{"name"}, field->name},
                                  {QLatin1String{"old"}, field->toJson(before)},
                                  {QLatin1String{"new"}, field->toJson(now)}});
    }
    return {{QLatin1String{"driver"}, now.layer},
            {QLatin1String{"oldNumber"}, difference.oldNumber},
            {QLatin1String{"newNumber"}, difference.newNumber},
            {QLatin1String{"fields"}, fields}};
}

}  // namespace

const _job& jobNumbered(const _sceneResult& scene, int number) {
    return scene.jobs[static_cast<std::size_t>(number - 1)];
}

QJsonObject diffToJson(const _jobDiff& diff, const _sceneResult& before, const _sceneResult& now) {
    QJsonArray came;
    QJsonArray went;
    QJsonArray changed;
    for (const auto& difference : diff.differences) {
        if (difference.hasCome()) {
            came.append(printedJson(jobNumbered(now, difference.newNumber), now.scene));
        } else if (difference.hasGone()) {
            went.append(printedJson(jobNumbered(before, difference.oldNumber), before.scene));
        } else {
            changed.append(changedToJson(difference, jobNumbered(before, difference.oldNumber),
                                         jobNumbered(now, difference.newNumber)));
        }
    }
    return {{QLatin1String{"old"}, before.scene}, {QLatin1String{"new"}, now.scene},
            {QLatin1String{"came"}, came},        {QLatin1String{"went"}, went},
            {QLatin1String{"changed"}, changed},  {QLatin1String{"unchanged"}, diff.unchanged}};
}

}  // namespace vxH
