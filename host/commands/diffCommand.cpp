// vxscene diff
#include <array>

#include "host/access/sceneLoad.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/diff/comparison.h"
#include "host/results/sceneJson.h"
#include "host/text/jobDiffText.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    std::chrono::milliseconds timeout{0};  // for each scene
    std::string oldScene;
    std::string newScene;
    bool asJson = false;
    bool everyField = false;
    _colour colour = _colour::automatic;
};

/// Loads both scenes; each that fails has its error line. @return exitSame while the jobs of all are known
int load(const _options& options, const _submitterArguments& submitter, std::array<_sceneResult, 2>& results) {
    const _askedPlugin plugin{QString::fromStdString(options.plugin), options.timeout};
    int status = exitSame;
    auto result = results.begin();
    for (const auto* const scene : {&options.oldScene, &options.newScene}) {
        *result = loadSceneApart(plugin, scene->c_str(), submitter);
        if (result->code == hostNoPlugin) return noPlugin(result->error);
        const int told = tellOf(*result);
        status = worseOf(status, told == exitFailed ? int{exitTrouble} : told);
        ++result;
    }
    return status;
}

int run(const _options& options, const _submitterArguments& submitter) {
    std::array<_sceneResult, 2> results;
    const int status = load(options, submitter, results);
    if (status != exitSame) return status;
    const auto& [before, now] = results;
    const auto diff =
        diffJobs(_comparable{before}, _comparable{now}, options.everyField ? _compared::everyField : _compared::jobs);
    if (options.asJson) {
        print(jsonText(diffToJson(diff, before, now), true));
    } else {
        print(diffLines(diff, before, now, standardOutputTerminal(options.colour)));
    }
    return diff.differences.empty() ? exitSame : exitDifferent;
}

}  // namespace

_command diffCommand() {
    const auto options = std::make_shared<_options>();
    return resolving(
        {"diff",
         "Print which jobs came, went or changed from one scene to another",
         "A job is found again by its driver, and among the driver's jobs by renderer, take and output, wherever it\n"
         "stands. A driver that was renamed counts as gone and another one as come.\n"
         "Not shown without --all: in paths, the folder of the scene where a path begins with it, and the name of the\n"
         "scene where it is a whole word; a job's own number, and other numbers for the same jobs to wait for.\n"
         "A scene whose drivers have no usable output names is told on the error stream and compared as one without\n"
         "jobs.\n"
         "\n" +
             exitStatusHelp(comparisonStatuses) +
             "\n"
             "Examples:\n"
             "  vxscene diff shot010_v001.hip shot010_v002.hip\n"
             "  vxscene diff --format json shot010_v001.hip shot010_v002.hip -- -houdiniBuildVersion 50000",
         {pluginOption(options->plugin), textOrJson(options->asJson),
          flag("-a,--all", options->everyField, "Every field that differs, whatever the reason"),
          colourOption(options->colour),
          timeoutOption(options->timeout, "End a load that takes longer, 2.5 for example")},
         {sceneArgument("OLD", options->oldScene, "Scene file to compare with"),
          sceneArgument("NEW", options->newScene, "Scene file; submitter arguments follow \"--\"")},
         [options](const _submitterArguments& submitter) { return run(*options, submitter); },
         exitTrouble});
}

}  // namespace vxH
