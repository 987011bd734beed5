#include "host/results/jobWaits.h"

#include <algorithm>
#include <array>

namespace vxH {
namespace {

constexpr QLatin1String frameMark{"<FN"};

/// "<Database>ifd/a." and ".ifd" make "<Database>ifd/a.<FN4>.ifd", without the frame for a single file.
bool rendersWhatIsWritten(const _job& waiting, const _job& earlier) {
    const QString& file = waiting.sceneName;
    const QString start = earlier.imageDir + earlier.imageFileName;
    const auto rest = file.size() - start.size() - earlier.imageExtension.size();
    if (start.isEmpty() || rest < 0 || !file.startsWith(start) || !file.endsWith(earlier.imageExtension)) return false;
    return rest == 0 || file.mid(start.size()).startsWith(frameMark);
}

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

}  // namespace

void findWaits(std::vector<_job>& jobs) {
    _earlierJobs earlier{jobs};
    int index = 0;
    for (auto& job : jobs) {
        job.waitsFor.clear();
        for (const int preID : job.waitForPreIDs) job.waitsFor.push_back(earlier.waitedForBy(job, preID));
        earlier.add(index++);
    }
}

}  // namespace vxH
