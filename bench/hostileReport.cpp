// What the worst scenes cost. A load may take a second and one more for each 100 MB, of the processor, and 64 MB beside
// the job records; its explanation as much again of each. The kernel's time is shown beside it: nearly all of it goes
// into clearing the records, which are the host's.
// Usage: hostileReport [MEGABYTES=100 [ROW]]
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/hostileScenes.h"
#include "bench/measurement.h"
#include "explain/explainedLoad.h"
#include "plugin/vxSceneParserHoudini.h"

namespace {

using namespace vxBench;

constexpr int most = 16000;
constexpr double secondsOfAnyScene = 1;
constexpr double bytesPerSecond = 100e6;
constexpr long kilobytesBesideRecords = 64 * 1024;

/// @param loads  that it counts for: an explained one for two
void show(const char* what, const _measurement& load, std::size_t bytes, int loads) {
    const double allowed = loads * (secondsOfAnyScene + static_cast<double>(bytes) / bytesPerSecond);
    const long kilobytes = load.peakKilobytes - load.recordKilobytes;
    std::printf("%-34s %6.1f MB %6.3f + %6.3f s of %5.2f %-6s %6ld KB %-6s code %2d, %d jobs\n", what,
                static_cast<double>(bytes) / 1e6, load.ownSeconds, load.kernelSeconds, allowed,
                load.ownSeconds <= allowed ? "ok" : "SLOW", kilobytes,
                kilobytes <= loads * kilobytesBesideRecords ? "ok" : "LARGE", load.code, load.jobs);
    std::fflush(stdout);
}

void report(const _hostileScene& scene, std::size_t bytes, const std::string& path) {
    const std::size_t written = writeHostileScene(scene, bytes, path);
    show(scene.name, measuredLoad(path, 0, [](auto& record) { return pLoadSceneFile(&record); }), written, 1);
    const auto explain = [](auto& record) {
        vxE::_explanation explanation;
        return vxE::loadExplained(record, explanation);
    };
    show("  explained", measuredLoad(path, 0, explain), written, 2);
}

}  // namespace

int main(int count, char** arguments) {
    const auto bytes = static_cast<std::size_t>(count > 1 ? std::atoll(arguments[1]) : 100) * 1000000;
    const std::string wanted = count > 2 ? arguments[2] : "";
    const std::string path = "/tmp/hostileReport-" + std::to_string(getpid()) + ".hip";
    for (const auto& scene : hostileScenes(most))
        if (wanted.empty() || wanted == scene.name) report(scene, bytes, path);
    unlink(path.c_str());
    return 0;
}
