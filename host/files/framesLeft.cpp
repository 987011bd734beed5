#include "host/files/framesLeft.h"

#include <algorithm>
#include <optional>

#include "host/results/jobFrames.h"
#include "host/results/jobWaits.h"

namespace vxH {
namespace {

/// Places of the frames in the job's range, as runs that may overlap.
void addPlaces(const _frameList& frames, const _frameRange& range, std::vector<_frameRun>& runs) {
    for (const auto& [first, last, step] : frames) {
        const qint64 from = (first - range.first) / range.step;
        const qint64 to = (last - range.first) / range.step;
        const qint64 distance = std::max<qint64>(step / range.step, 1);
        if (distance == 1) {
            runs.push_back({from, to});
        } else {
            for (qint64 place = from; place <= to; place += distance) runs.push_back({place, place});
        }
    }
}

/// In ascending order, with a gap between them.
std::vector<_frameRun> joined(std::vector<_frameRun> runs) {
    std::sort(runs.begin(), runs.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<_frameRun> list;
    for (const auto& run : runs) {
        if (!list.empty() && run.first <= list.back().last + 1) {
            list.back().last = std::max(list.back().last, run.last);
        } else {
            list.push_back(run);
        }
    }
    return list;
}

/// Collects what the sets of one job say.
class _jobLeft {
 public:
    void add(const _outputFiles& files, const _diskState& state) {
        if (!state.isTold() || !files.frames) {
            if (!files.isChannel && left.unknown.isEmpty())
                left.unknown = state.isTold() ? QStringLiteral("the frames are not known") : state.problem;
            return;
        }
        range = *files.frames;
        for (const auto& frames : state.faults) addPlaces(frames, range, runs);
    }

    _framesLeft result() {
        if (left.unknown.isEmpty()) left.frames = foldedFrames(range, joined(std::move(runs)));
        return left;
    }

 private:
    _framesLeft left;
    _frameRange range;
    std::vector<_frameRun> runs;
};

/// Runs of places that are in both lists.
std::vector<_frameRun> common(const std::vector<_frameRun>& runs, const std::vector<_frameRun>& others) {
    std::vector<_frameRun> both;
    auto other = others.begin();
    for (const auto& run : runs) {
        while (other != others.end() && other->last < run.first) ++other;
        for (auto one = other; one != others.end() && one->first <= run.last; ++one)
            both.push_back({std::max(run.first, one->first), std::min(run.last, one->last)});
    }
    return both;
}

/// Places of the frames that are left of the jobs which render what the job writes.
/// @return none: there are no such jobs, or it is not known
std::optional<std::vector<_frameRun>> fedPlaces(const std::vector<_job>& jobs, std::size_t job,
                                                const _frameRange& range, const std::vector<_framesLeft>& left) {
    std::optional<std::vector<_frameRun>> places;
    for (std::size_t other = job + 1; other < jobs.size(); ++other) {
        const auto& waits = jobs[other].waitsFor;
        if (std::find(waits.begin(), waits.end(), static_cast<int>(job)) == waits.end()) continue;
        const bool isKnown = left[other].unknown.isEmpty() && rendersWhatIsWritten(jobs[other], jobs[job]) &&
                             wholeFrames(jobs[other]) == range;
        if (!isKnown) return std::nullopt;
        if (!places) places.emplace();
        addPlaces(left[other].frames, range, *places);
    }
    if (places) places = joined(std::move(*places));
    return places;
}

/// Takes off the job what no job that it feeds has left.
void leaveWhatIsFed(const std::vector<_job>& jobs, std::size_t job, std::vector<_framesLeft>& left) {
    const auto range = wholeFrames(jobs[job]);
    if (!range || left[job].frames.empty()) return;
    const auto fed = fedPlaces(jobs, job, *range, left);
    if (!fed || (jobs[job].imageSingleOutputFile && !fed->empty())) return;
    std::vector<_frameRun> own;
    addPlaces(left[job].frames, *range, own);
    left[job].frames = foldedFrames(*range, common(joined(std::move(own)), *fed));
}

}  // namespace

std::vector<_framesLeft> framesLeft(const std::vector<_outputFiles>& files, const std::vector<_diskState>& states) {
    std::vector<_framesLeft> left;
    for (std::size_t i = 0; i < files.size();) {
        _jobLeft job;
        const int number = files[i].job;
        for (; i < files.size() && files[i].job == number; ++i) job.add(files[i], states[i]);
        left.push_back(job.result());
    }
    return left;
}

std::vector<_framesLeft> framesLeft(const _explainedScene& scene, const _diskQuestion& question) {
    const auto files = outputFilesOf(scene);
    auto left = framesLeft(files, diskStatesOf(files, question));
    for (auto job = left.size(); job > 0; --job) leaveWhatIsFed(scene.jobs, job - 1, left);
    return left;
}

}  // namespace vxH
