#include "host/results/jobWaits.h"

#include <algorithm>
#include <array>

namespace vxH {
namespace {

bool haveSameDriverAndTake(const _job& left, const _job& right) {
    return left.layer == right.layer && left.channel == right.channel;
}

/// The jobs before a waiting one, by their own numbers.
class _jobsBefore {
 public:
    explicit _jobsBefore(const std::vector<_job>& sceneJobs) : jobs(sceneJobs) {}

    void add(int index) { withPreID[numberOf(jobAt(index).preID)].push_back(index); }

    int waitedForBy(const _job& waiting, int preID) const {
        const auto& found = withPreID[numberOf(preID)];
        const auto own = std::find_if(found.rbegin(), found.rend(),
                                      [&](int index) { return haveSameDriverAndTake(jobAt(index), waiting); });
        if (own != found.rend()) return *own;
        return found.empty() ? noJob : found.back();
    }

 private:
    const _job& jobAt(int index) const { return jobs[static_cast<std::size_t>(index)]; }
    static quint8 numberOf(int preID) { return static_cast<quint8>(preID); }

    const std::vector<_job>& jobs;
    std::array<std::vector<int>, 256> withPreID;
};

}  // namespace

void findWaits(std::vector<_job>& jobs) {
    _jobsBefore before{jobs};
    int index = 0;
    for (auto& job : jobs) {
        job.waitsFor.clear();
        for (const int preID : job.waitForPreIDs) job.waitsFor.push_back(before.waitedForBy(job, preID));
        before.add(index++);
    }
}

}  // namespace vxH
