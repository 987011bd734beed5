#include "host/diff/comparison.h"

#include <QLatin1String>

#include "host/diff/jobMatch.h"
#include "host/diff/sceneMarks.h"

namespace vxH {
namespace {

constexpr QLatin1String ownNumberField{"preID"};
constexpr QLatin1String waitsField{"waitForPreIDs"};

/// Jobs of both scenes that are the same one, by their indices.
struct _pair {
    std::size_t before;
    std::size_t now;
};

class _comparison {
 public:
    _comparison(const _comparable& oldScene, const _comparable& newScene, _compared chosen)
        : before{oldScene}, now{newScene}, matches{matchedJobs(oldScene.jobs, newScene.jobs)}, compared{chosen} {}

    _jobDiff run() const {
        _jobDiff diff;
        std::vector<bool> isFound(before.jobs.size(), false);
        for (std::size_t i = 0; i < matches.size(); ++i) {
            const int number = static_cast<int>(i) + 1;
            if (matches[i] == noJob) {
                diff.differences.push_back({0, number, {}});
                continue;
            }
            const auto old = static_cast<std::size_t>(matches[i]);
            isFound[old] = true;
            const auto fields = differentFields({old, i});
            if (fields.empty()) {
                ++diff.unchanged;
            } else {
                diff.differences.push_back({matches[i] + 1, number, fields});
            }
        }
        for (std::size_t i = 0; i < isFound.size(); ++i)
            if (!isFound[i]) diff.differences.push_back({static_cast<int>(i) + 1, 0, {}});
        return diff;
    }

 private:
    std::vector<const _jobField*> differentFields(_pair pair) const {
        std::vector<const _jobField*> fields;
        for (const auto& field : jobFields())
            if (isDifferent(field, pair)) fields.push_back(&field);
        return fields;
    }

    bool isDifferent(const _jobField& field, _pair pair) const {
        const bool isAsItWas = field.isEqual(before.scene.jobs[pair.before], now.scene.jobs[pair.now]);
        if (compared == _compared::everyField) return !isAsItWas;
        if (field.name == ownNumberField) return false;
        if (field.name == waitsField) return waitForOthers(before.jobs[pair.before], now.jobs[pair.now]);
        return !isAsItWas && !field.isEqual(before.jobs[pair.before], now.jobs[pair.now]);
    }

    /// A number that no job has is compared as it is.
    bool waitForOthers(const _job& oldJob, const _job& newJob) const {
        if (oldJob.waitsFor.size() != newJob.waitsFor.size()) return true;
        for (std::size_t i = 0; i < newJob.waitsFor.size(); ++i) {
            const int oldIndex = oldJob.waitsFor[i];
            const int newIndex = newJob.waitsFor[i];
            const bool isKnown = oldIndex != noJob && newIndex != noJob;
            if (isKnown ? matches[static_cast<std::size_t>(newIndex)] != oldIndex
                        : newIndex != oldIndex || oldJob.waitForPreIDs[i] != newJob.waitForPreIDs[i])
                return true;
        }
        return false;
    }

    const _comparable& before;
    const _comparable& now;
    std::vector<int> matches;
    _compared compared;
};

}  // namespace

_comparable::_comparable(const _sceneResult& sceneResult) : scene(sceneResult) {
    const _sceneMarks marks{scene.scene};
    jobs.reserve(scene.jobs.size());
    for (const auto& job : scene.jobs) jobs.push_back(marks.marked(job));
}

_jobDiff diffJobs(const _comparable& before, const _comparable& now, _compared compared) {
    return _comparison{before, now, compared}.run();
}

}  // namespace vxH
