#include "host/sceneOptions.h"

#include <sched.h>
#include <unistd.h>

#include <algorithm>

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

/// CLI::Range lets "nan" pass.
std::string timeoutProblem(const std::string& text) {
    double seconds = 0;
    const bool isGood = CLI::detail::lexical_cast(text, seconds) && seconds > 0 && seconds <= longestTimeout;
    return isGood ? std::string{} : text + " is no number of seconds above 0";
}

}  // namespace

void addSceneOptions(CLI::App& command, _sceneOptions& options) {
    options.parallel = availableCores();
    command.add_flag("--recursive", options.recursive, "Look into the folders below a folder too");
    command
        .add_option("--parallel", options.parallel, "Scenes to load at a time; as many as there are cores otherwise")
        ->check(CLI::Range(1, mostParallel).description(""))
        ->type_name("N");
    command.add_option("--timeout", options.timeout, "End a scene that takes longer, 2.5 for example")
        ->check(CLI::Validator(timeoutProblem, ""))
        ->type_name("SECONDS");
    command.add_flag("--no-progress", options.noProgress, "No progress line on the terminal");
    command.add_option("scenes", options.scenes, "Scene files, folders with scenes, - for a list on standard input")
        ->required()
        ->type_name("SCENE");
}

}  // namespace vxH
