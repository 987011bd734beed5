#include "host/results/jobWaits.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "jobs/VX_DataTypes_jobs_defines.h"

namespace vxH {
namespace {

constexpr QLatin1String frameMark{"<FN"};

bool haveSameDriverAndTake(const _job& waiting, const _job& earlier) {
    return waiting.layer == earlier.layer && waiting.channel == earlier.channel;
}

bool areAnyJobs(const _job&, const _job&) {
    return true;
}

/// In the order in which they count.
constexpr std::array signs{rendersWhatIsWritten, haveSameDriverAndTake, areAnyJobs};

/// The jobs before a waiting one, by their own numbers.
class _earlierJobs {
 public:
    explicit _earlierJobs(const std::vector<_job>& sceneJobs) : jobs(sceneJobs) {}

    void add(int index) { withPreID[numberOf(jobAt(index).preID)].push_back(index); }

    int waitedForBy(const _job& waiting, int preID) const {
        const auto& candidates = withPreID[numberOf(preID)];
        for (const auto hasSign : signs) {
            const auto found = std::find_if(candidates.rbegin(), candidates.rend(),
                                            [&](int index) { return hasSign(waiting, jobAt(index)); });
            if (found != candidates.rend()) return *found;
        }
        return noJob;
    }

 private:
    const _job& jobAt(int index) const { return jobs[static_cast<std::size_t>(index)]; }
    static quint8 numberOf(int preID) { return static_cast<quint8>(preID); }

    const std::vector<_job>& jobs;
    std::array<std::vector<int>, 256> withPreID;
};

/// The jobs that the job's own list of positions means; none where it has no such list, or it is not sound.
std::vector<int> listedBy(const _job& waiting, int index) {
    const QString list = waiting.customText(vxJ::CUSTOMWaitsFor);
    if (list.isEmpty()) return {};
    std::vector<int> jobs;
    for (const QString& position : list.split(QLatin1Char(' '))) {
        const int job = position.toInt() - 1;
        if (job < 0 || job >= index) return {};
        jobs.push_back(job);
    }
    return jobs;
}

}  // namespace

bool rendersWhatIsWritten(const _job& waiting, const _job& earlier) {
    const QString& file = waiting.sceneName;
    const QString start = earlier.imageDir + earlier.imageFileName;
    const auto rest = file.size() - start.size() - earlier.imageExtension.size();
    if (start.isEmpty() || rest < 0 || !file.startsWith(start) || !file.endsWith(earlier.imageExtension)) return false;
    return rest == 0 || file.mid(start.size()).startsWith(frameMark);
}

void findWaits(std::vector<_job>& jobs) {
    _earlierJobs earlier{jobs};
    int index = 0;
    for (auto& job : jobs) {
        job.waitsFor = listedBy(job, index);
        if (job.waitsFor.empty())
            for (const int preID : job.waitForPreIDs) job.waitsFor.push_back(earlier.waitedForBy(job, preID));
        earlier.add(index++);
    }
}

}  // namespace vxH
