// What an explanation costs beside the load that it explains: the sum over the scenes of a folder, as a ratio to their
// plain loads in the same run. Each load is a process of its own, as it starts from fresh state.
// Usage: explainReport FOLDER [RUNS=9]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "bench/measurement.h"
#include "bench/sceneFolder.h"
#include "explain/explainedLoad.h"
#include "plugin/vxSceneParserHoudini.h"

namespace {

using namespace vxBench;
namespace fs = std::filesystem;

constexpr double mostTimes = 3;

/// Least seconds of the runs: a load of a millisecond is easily held up.
struct _times {
    double plain = std::numeric_limits<double>::max();
    double explained = std::numeric_limits<double>::max();
};

_times timesOf(const std::string& scene, int runs) {
    _times least;
    for (int run = 0; run < runs; ++run) {
        const auto plain = measuredLoad(scene, 0, [](auto& record) { return pLoadSceneFile(&record); });
        const auto explained = measuredLoad(scene, 0, [](auto& record) {
            vxE::_explanation explanation;
            return vxE::loadExplained(record, explanation);
        });
        if (plain.code != explained.code || plain.jobs != explained.jobs) {
            std::fprintf(stderr, "%s: explained, it has other jobs\n", scene.c_str());
            std::exit(EXIT_FAILURE);
        }
        least = {std::min(least.plain, plain.seconds), std::min(least.explained, explained.seconds)};
    }
    return least;
}

}  // namespace

int main(int count, char** arguments) {
    const int runs = count > 2 ? std::atoi(arguments[2]) : 9;
    _times sum{0, 0};
    for (const fs::path& scene : scenesIn(count > 1 ? arguments[1] : "examples")) {
        const _times times = timesOf(scene, runs);
        sum.plain += times.plain;
        sum.explained += times.explained;
    }
    const double ratio = sum.explained / sum.plain;
    std::printf("explained loads  %8.4f s   loads %8.4f s   ratio %6.2f   target <= %3.1f  %s\n", sum.explained,
                sum.plain, ratio, mostTimes, ratio <= mostTimes ? "ok" : "MISSED");
    return 0;
}
