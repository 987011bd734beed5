#include "host/report/comparisons.h"

#include <QJsonObject>

#include "host/diff/comparison.h"
#include "host/text/fieldChanges.h"

namespace vxH {
namespace {

constexpr std::size_t mostScenesWithEveryPair = 20;
constexpr std::size_t mostJobsCompared = 200000;  // beyond neighbours: bounds time and the size of the page

struct _place {
    int number;  // of the scene in the report, from 0
    _comparable scene;
};

QJsonArray fieldsJson(const _jobDifference& difference, const _sceneResult& left, const _sceneResult& right) {
    QJsonArray fields;
    for (const auto& change : fieldChanges(difference, left, right)) {
        fields.append(QJsonObject{{QLatin1String{"name"}, change.name},
                                  {QLatin1String{"before"}, change.before},
                                  {QLatin1String{"after"}, change.now}});
    }
    return fields;
}

QJsonObject comparisonJson(const _place& left, const _place& right) {
    QJsonArray came;
    QJsonArray went;
    QJsonArray changed;
    for (const auto& difference : diffJobs(left.scene, right.scene, _compared::jobs).differences) {
        if (difference.hasCome()) {
            came.append(difference.newNumber);
        } else if (difference.hasGone()) {
            went.append(difference.oldNumber);
        } else {
            changed.append(
                QJsonObject{{QLatin1String{"left"}, difference.oldNumber},
                            {QLatin1String{"right"}, difference.newNumber},
                            {QLatin1String{"fields"}, fieldsJson(difference, left.scene.scene, right.scene.scene)}});
        }
    }
    return {{QLatin1String{"left"}, left.number},
            {QLatin1String{"right"}, right.number},
            {QLatin1String{"came"}, came},
            {QLatin1String{"went"}, went},
            {QLatin1String{"changed"}, changed}};
}

}  // namespace

QJsonArray comparisons(const std::vector<const _sceneResult*>& scenes) {
    if (scenes.size() < 2) return {};
    std::vector<_place> places;
    places.reserve(scenes.size());
    int number = 0;
    for (const auto* const scene : scenes) {
        if (scene->knowsItsJobs()) places.push_back({number, _comparable{*scene}});
        ++number;
    }
    QJsonArray list;
    const auto furthest = places.size() <= mostScenesWithEveryPair ? places.size() : 2;
    std::size_t jobs = 0;
    for (std::size_t distance = 1; distance < furthest; ++distance) {
        for (std::size_t left = 0; left + distance < places.size(); ++left) {
            const auto& right = places[left + distance];
            jobs += places[left].scene.jobs.size() + right.scene.jobs.size();
            if (distance == 1 || jobs <= mostJobsCompared) list.append(comparisonJson(places[left], right));
        }
    }
    return list;
}

}  // namespace vxH
