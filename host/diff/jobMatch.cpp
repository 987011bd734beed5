// Several passes, from jobs that have everything in common to those that have little.
#include "host/diff/jobMatch.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <map>

#include "host/results/jobCells.h"

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

std::vector<_identity> identitiesOf(const std::vector<_job>& jobs) {
    std::vector<_identity> identities;
    identities.reserve(jobs.size());
    for (const auto& job : jobs) {
        const bool waits = !job.waitForPreIDs.empty();
        identities.push_back({job.layer,
                              {rendererCell(job), job.channel, job.imageDir, job.imageFileName + job.imageExtension,
                               QString::number(int{waits})}});
    }
    return identities;
}

/// The jobs with the same traits that are still without a match, in order.
struct _candidates {
    std::vector<int> before;
    std::vector<int> now;
};

class _matching {
 public:
    _matching(const std::vector<_job>& oldJobs, const std::vector<_job>& newJobs)
        : before{identitiesOf(oldJobs)},
          now{identitiesOf(newJobs)},
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

}  // namespace

std::vector<int> matchedJobs(const std::vector<_job>& before, const std::vector<_job>& now) {
    _matching matching{before, now};
    for (const auto& pass : passes) matching.run(pass);
    return std::move(matching).result();
}

}  // namespace vxH
