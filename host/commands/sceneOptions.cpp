#include "host/commands/sceneOptions.h"

#include <sched.h>
#include <unistd.h>

#include <algorithm>

namespace vxH {
namespace {

constexpr int mostParallel = 1024;

/// Cores that this process may run on.
int availableCores() {
    cpu_set_t cores;
    const bool isKnown = sched_getaffinity(0, sizeof cores, &cores) == 0;  // fails above 1024 cores
    const auto count = isKnown ? CPU_COUNT(&cores) : static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN));
    return std::clamp(count, 1, mostParallel);
}

_option shardOption(_shard& shard) {
    const auto take = [&shard](const std::string& text) { return readShard(text, shard); };
    return {{"--shard"}, "Only part K of N of the scenes, by their paths, as one of N machines",
            "K/N",       _offered::nothing,
            {},          false,
            take};
}

}  // namespace

void addRunOptions(_command& command, _sceneOptions& options) {
    options.parallel = availableCores();
    const _option added[] = {
        flag("-r,--recursive", options.recursive, "Look into the folders below a folder too"),
        numberOption("-j,--parallel", options.parallel, {1, mostParallel},
                     "Scenes to load at a time; as many as there are cores otherwise"),
        timeoutOption(options.timeout, "End a scene that takes longer, 2.5 for example"),
        shardOption(options.shard),
        flag("--no-progress", options.noProgress, "No progress line on the terminal"),
    };
    command.options.insert(command.options.end(), std::begin(added), std::end(added));
}

void addSceneOptions(_command& command, _sceneOptions& options) {
    addRunOptions(command, options);
    command.arguments.push_back(
        scenesArgument("SCENE", options.scenes, "Scene files, folders with scenes, - for a list on standard input"));
}

}  // namespace vxH
