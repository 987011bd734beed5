#include "host/commands/sceneOptions.h"

#include <sched.h>
#include <unistd.h>

#include <algorithm>

#include "host/commands/command.h"

namespace vxH {
namespace {

constexpr int mostParallel = 1024;
constexpr double longestTimeout = 1e9;  // seconds

/// Cores that this process may run on.
int availableCores() {
    cpu_set_t cores;
    const bool isKnown = sched_getaffinity(0, sizeof cores, &cores) == 0;  // fails above 1024 cores
    const auto count = isKnown ? CPU_COUNT(&cores) : static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN));
    return std::clamp(count, 1, mostParallel);
}

}  // namespace

void addSceneOptions(CLI::App& command, _sceneOptions& options) {
    options.parallel = availableCores();
    addFlag(command, "--recursive", options.recursive, "Look into the folders below a folder too");
    addNumber(command, "--parallel", options.parallel, {1, mostParallel},
              "Scenes to load at a time; as many as there are cores otherwise", "N");
    addSeconds(command, "--timeout", options.timeout, longestTimeout, "End a scene that takes longer, 2.5 for example");
    addFlag(command, "--no-progress", options.noProgress, "No progress line on the terminal");
    addArguments(command, "SCENE", options.scenes, "Scene files, folders with scenes, - for a list on standard input");
}

}  // namespace vxH
