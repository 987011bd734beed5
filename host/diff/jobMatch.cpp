// Several passes, from jobs that have everything in common to those that have little.
#include "host/diff/jobMatch.h"

#include <QJsonArray>
#include <QStringList>
#include <algorithm>
#include <array>
#include <map>

#include "host/diff/sceneMarks.h"
#include "host/results/jobCells.h"
#include "host/results/sceneResult.h"

namespace vxH {
namespace {

/// What a job is known by, beside its driver: bits, in the order of `_identity::traits`.
enum _trait : unsigned { renderer = 1U << 0U, take = 1U << 1U, folder = 1U << 2U, file = 1U << 3U, waiting = 1U << 4U };
constexpr std::size_t traitCount = 5;

struct _identity {
    QString driver;
    std::array<QString, traitCount> traits;
};

/// Jobs of a driver that have all of these traits in common are the same.
struct _pass {
    unsigned traits;
    bool onlyCandidate;  // as long as no other job, old or new, has them
};

constexpr std::array passes{
    _pass{renderer | take | folder | file, false},
    _pass{renderer | take | file, false},
    _pass{renderer | take, false},
    _pass{take | folder | file, true},  // a render job in the place of a driver's direct one, or the other way round
    _pass{take | waiting, true},
    _pass{renderer, true},
    _pass{waiting, true},
};

_identity identityOf(const QJsonObject& job, const _sceneMarks& marks) {
    const auto text = [&](const char* field) { return job[QLatin1String{field}].toString(); };
    const bool waits = !job[QLatin1String{"waitForPreIDs"}].toArray().isEmpty();
    return {driverCell(job),
            {rendererCell(job), text("channel"), marks.marked(text("imageDir")),
             marks.marked(text("imageFileName")) + text("imageExtension"), QString::number(int{waits})}};
}

std::vector<_identity> identitiesOf(const QJsonObject& result) {
    const _sceneMarks marks{result[sceneKey].toString()};
    std::vector<_identity> identities;
    const auto jobs = result[jobsKey].toArray();
    for (const auto& job : jobs) identities.push_back(identityOf(job.toObject(), marks));
    return identities;
}

/// The jobs with the same traits that are still without a match, in order.
struct _candidates {
    std::vector<int> before;
    std::vector<int> now;
};

class _matching {
 public:
    _matching(const QJsonObject& oldResult, const QJsonObject& newResult)
        : before{identitiesOf(oldResult)},
          now{identitiesOf(newResult)},
          isFound(before.size(), false),
          matches(now.size(), noJob) {}

    void run(const _pass& pass) {
        std::map<QStringList, _candidates> groups;
        for (std::size_t i = 0; i < before.size(); ++i)
            if (!isFound[i]) groups[keyOf(before[i], pass)].before.push_back(static_cast<int>(i));
        for (std::size_t i = 0; i < now.size(); ++i)
            if (matches[i] == noJob) groups[keyOf(now[i], pass)].now.push_back(static_cast<int>(i));
        for (const auto& [key, group] : groups) {
            if (!pass.onlyCandidate || (group.before.size() == 1 && group.now.size() == 1)) matchInOrder(group);
        }
    }

    std::vector<int> result() && { return std::move(matches); }

 private:
    static QStringList keyOf(const _identity& job, const _pass& pass) {
        QStringList key{job.driver};
        for (std::size_t i = 0; i < traitCount; ++i)
            if ((pass.traits >> i & 1U) != 0) key += job.traits[i];
        return key;
    }

    void matchInOrder(const _candidates& group) {
        const auto pairs = std::min(group.before.size(), group.now.size());
        for (std::size_t i = 0; i < pairs; ++i) {
            matches[static_cast<std::size_t>(group.now[i])] = group.before[i];
            isFound[static_cast<std::size_t>(group.before[i])] = true;
        }
    }

    std::vector<_identity> before;
    std::vector<_identity> now;
    std::vector<bool> isFound;
    std::vector<int> matches;
};

/// The jobs before a waiting one, by their own numbers.
class _jobsBefore {
 public:
    void add(const QJsonObject& job) {
        jobs.push_back({driverAndTake(job)});
        withPreID[preIDIn(job[QLatin1String{"preID"}])].push_back(static_cast<int>(jobs.size()) - 1);
    }

    int waitedFor(const QJsonObject& waiting, const QJsonValue& preID) const {
        const auto& found = withPreID[preIDIn(preID)];
        const auto wanted = driverAndTake(waiting);
        const auto own = std::find_if(found.rbegin(), found.rend(),
                                      [&](int index) { return jobs[static_cast<std::size_t>(index)] == wanted; });
        if (own != found.rend()) return *own;
        return found.empty() ? noJob : found.back();
    }

 private:
    using _driverAndTake = std::pair<QString, QString>;

    static _driverAndTake driverAndTake(const QJsonObject& job) {
        return {job[QLatin1String{"layer"}].toString(), job[QLatin1String{"channel"}].toString()};
    }
    static quint8 preIDIn(const QJsonValue& value) { return static_cast<quint8>(value.toInt()); }

    std::vector<_driverAndTake> jobs;
    std::array<std::vector<int>, 256> withPreID;
};

}  // namespace

std::vector<int> matchedJobs(const QJsonObject& oldResult, const QJsonObject& newResult) {
    _matching matching{oldResult, newResult};
    for (const auto& pass : passes) matching.run(pass);
    return std::move(matching).result();
}

std::vector<std::vector<int>> waitedForJobs(const QJsonObject& result) {
    std::vector<std::vector<int>> waitedFor;
    _jobsBefore jobsBefore;
    const auto jobs = result[jobsKey].toArray();
    for (const auto& entry : jobs) {
        const auto job = entry.toObject();
        auto& indices = waitedFor.emplace_back();
        const auto preIDs = job[QLatin1String{"waitForPreIDs"}].toArray();
        for (const auto& preID : preIDs) indices.push_back(jobsBefore.waitedFor(job, preID));
        jobsBefore.add(job);
    }
    return waitedFor;
}

}  // namespace vxH
