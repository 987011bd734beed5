// vxscene vars
#include <algorithm>
#include <limits>

#include "host/access/sceneLoad.h"
#include "host/base/displayText.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/results/sceneJson.h"
#include "host/text/variablesText.h"

namespace vxH {
namespace {

constexpr int allJobs = 0;  // in place of a job's number

struct _options {
    std::string plugin;
    std::chrono::milliseconds timeout{0};
    std::string scene;
    bool asJson = false;
    int jobNumber = allJobs;
};

/// Leaves the job with this number alone.
void keepJob(std::vector<_jobVariables>& jobs, int number) {
    const auto isOther = [&](const auto& job) { return job.number != number; };
    jobs.erase(std::remove_if(jobs.begin(), jobs.end(), isOther), jobs.end());
}

int run(const _options& options, const _submitterArguments& submitter) {
    auto result =
        loadVariablesApart({QString::fromStdString(options.plugin), options.timeout}, options.scene.c_str(), submitter);
    if (result.code == hostNoPlugin) return noPlugin(result.error);
    const auto jobsOfScene = result.jobs.size();
    if (options.jobNumber != allJobs) keepJob(result.jobs, options.jobNumber);
    if (result.isLoaded() && result.jobs.empty() && options.jobNumber != allJobs) {
        writeError(QStringLiteral("%1: there is no job %2: the scene has %3")
                       .arg(result.scene, QString::number(options.jobNumber),
                            counted(static_cast<qint64>(jobsOfScene), "job", "jobs")));
        return exitUsage;
    }
    if (options.asJson) {
        print(jsonText(variablesToJson(result), true));
    } else {
        print(variableLines(result.jobs));
    }
    return tellOf(result);
}

}  // namespace

_command varsCommand() {
    const auto options = std::make_shared<_options>();
    return resolving({"vars",
                      "Print the named variables of a scene's jobs",
                      "Examples:\n  vxscene vars shot010.hip\n  vxscene vars --job 2 --format json shot010.hip",
                      {pluginOption(options->plugin), textOrJson(options->asJson),
                       numberOption("--job", options->jobNumber, {1, std::numeric_limits<int>::max()},
                                    "Only this job, numbered as \"jobs\" does"),
                       timeoutOption(options->timeout, "End a load that takes longer, 2.5 for example")},
                      {sceneArgument("SCENE", options->scene, "Scene file; submitter arguments follow \"--\"")},
                      [options](const _submitterArguments& submitter) { return run(*options, submitter); }});
}

}  // namespace vxH
