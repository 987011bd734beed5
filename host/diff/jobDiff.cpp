// Fields are compared as JSON values first; only those that differ are looked at any closer.
#include "host/diff/jobDiff.h"

#include <QJsonArray>
#include <algorithm>
#include <array>

#include "host/diff/jobMatch.h"
#include "host/diff/sceneMarks.h"
#include "host/results/jobCells.h"
#include "host/results/sceneResult.h"

namespace vxH {
namespace {

constexpr QLatin1String ownNumberField{"preID"};
constexpr QLatin1String waitsField{"waitForPreIDs"};

/// Fields with paths in them.
constexpr std::array pathFields{QLatin1String{"channels"},         QLatin1String{"customData"},
                                QLatin1String{"imageDir"},         QLatin1String{"imageFileName"},
                                QLatin1String{"sceneDatabaseDir"}, QLatin1String{"sceneName"}};

/// A scene's jobs and what their fields are compared by.
struct _side {
    explicit _side(const QJsonObject& result)
        : jobs(result[jobsKey].toArray()), waitedFor{waitedForJobs(result)}, marks{result[sceneKey].toString()} {}

    QJsonArray jobs;
    std::vector<std::vector<int>> waitedFor;
    _sceneMarks marks;
};

/// Two jobs that are the same one.
struct _pair {
    int before;
    int now;
};

class _comparison {
 public:
    _comparison(const QJsonObject& oldResult, const QJsonObject& newResult, _compared chosen)
        : before{oldResult}, now{newResult}, matches{matchedJobs(oldResult, newResult)}, compared{chosen} {}

    _jobDiff run() const {
        _jobDiff diff;
        std::vector<bool> isFound(static_cast<std::size_t>(before.jobs.size()), false);
        for (int i = 0; i < static_cast<int>(matches.size()); ++i) {
            const int old = matches[static_cast<std::size_t>(i)];
            if (old != noJob) isFound[static_cast<std::size_t>(old)] = true;
            const auto fields = old == noJob ? std::vector<_fieldDifference>{} : fieldsOf({old, i});
            if (old == noJob || !fields.empty()) {
                diff.differences.push_back({old + 1, i + 1, fields});
            } else {
                ++diff.unchanged;
            }
        }
        for (int i = 0; i < static_cast<int>(isFound.size()); ++i)
            if (!isFound[static_cast<std::size_t>(i)]) diff.differences.push_back({i + 1, 0, {}});
        return diff;
    }

 private:
    /// Both jobs were made by `jobToJson` and have the same members.
    std::vector<_fieldDifference> fieldsOf(_pair pair) const {
        std::vector<_fieldDifference> fields;
        const auto oldJob = before.jobs[pair.before].toObject();
        const auto newJob = now.jobs[pair.now].toObject();
        for (auto member = newJob.begin(); member != newJob.end(); ++member) {
            const _fieldDifference field{member.key(), oldJob[member.key()], *member};
            if (differs(field, pair)) fields.push_back(field);
        }
        return fields;
    }

    bool differs(const _fieldDifference& field, _pair pair) const {
        const bool isEqual = field.before == field.now;
        if (compared == _compared::everyField) return !isEqual;
        if (field.name == ownNumberField) return false;
        if (field.name == waitsField) return waitForOthers(field, pair);
        if (isEqual) return false;
        return std::find(pathFields.begin(), pathFields.end(), field.name) == pathFields.end() ||
               before.marks.marked(field.before) != now.marks.marked(field.now);
    }

    /// A number that no job has is compared as it stands.
    bool waitForOthers(const _fieldDifference& field, _pair pair) const {
        const auto& oldJobs = before.waitedFor[static_cast<std::size_t>(pair.before)];
        const auto& newJobs = now.waitedFor[static_cast<std::size_t>(pair.now)];
        if (oldJobs.size() != newJobs.size()) return true;
        const auto oldNumbers = field.before.toArray();
        const auto newNumbers = field.now.toArray();
        for (std::size_t i = 0; i < newJobs.size(); ++i) {
            const bool isKnown = newJobs[i] != noJob && oldJobs[i] != noJob;
            const auto place = static_cast<int>(i);
            if (isKnown ? matches[static_cast<std::size_t>(newJobs[i])] != oldJobs[i]
                        : newJobs[i] != oldJobs[i] || oldNumbers[place] != newNumbers[place])
                return true;
        }
        return false;
    }

    _side before;
    _side now;
    std::vector<int> matches;
    _compared compared;
};

QJsonObject changedToJson(const _jobDifference& difference, const QJsonObject& newResult) {
    QJsonArray fields;
    for (const auto& field : difference.fields) {
        fields.append(QJsonObject{{QLatin1String{"name"}, field.name},
                                  {QLatin1String{"old"}, field.before},
                                  {QLatin1String{"new"}, field.now}});
    }
    return {{QLatin1String{"driver"}, driverCell(jobNumbered(newResult, difference.newNumber))},
            {QLatin1String{"oldNumber"}, difference.oldNumber},
            {QLatin1String{"newNumber"}, difference.newNumber},
            {QLatin1String{"fields"}, fields}};
}

}  // namespace

QJsonObject jobNumbered(const QJsonObject& result, int number) {
    return result[jobsKey].toArray()[number - 1].toObject();
}

_jobDiff diffJobs(const QJsonObject& oldResult, const QJsonObject& newResult, _compared compared) {
    return _comparison{oldResult, newResult, compared}.run();
}

QJsonObject diffToJson(const _jobDiff& diff, const QJsonObject& oldResult, const QJsonObject& newResult) {
    QJsonArray came;
    QJsonArray went;
    QJsonArray changed;
    for (const auto& difference : diff.differences) {
        if (difference.hasCome()) {
            came.append(jobNumbered(newResult, difference.newNumber));
        } else if (difference.hasGone()) {
            went.append(jobNumbered(oldResult, difference.oldNumber));
        } else {
            changed.append(changedToJson(difference, newResult));
        }
    }
    return {{QLatin1String{"old"}, oldResult[sceneKey]},
            {QLatin1String{"new"}, newResult[sceneKey]},
            {QLatin1String{"came"}, came},
            {QLatin1String{"went"}, went},
            {QLatin1String{"changed"}, changed},
            {QLatin1String{"unchanged"}, diff.unchanged}};
}

}  // namespace vxH
