#include "host/files/framesLeft.h"

#include <algorithm>

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
    return framesLeft(files, diskStatesOf(files, question));
}

}  // namespace vxH
