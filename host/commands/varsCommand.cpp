// vxscene vars
#include <limits>

#include "host/access/sceneLoad.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/results/recordReading.h"
#include "host/results/sceneJson.h"
#include "host/text/variablesText.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    std::string scene;
    bool asJson = false;
    int jobNumber = allJobs;
};

int run(const _options& options, const _submitterArguments& submitter) {
    const auto result =
        loadVariablesApart(QString::fromStdString(options.plugin), options.scene.c_str(), submitter, options.jobNumber);
    if (result.code == hostNoPlugin) return noPlugin(result.error);
    if (result.isLoaded() && result.jobs.empty() && options.jobNumber != allJobs) {
        writeError(QStringLiteral("%1: there is no job %2").arg(result.scene, QString::number(options.jobNumber)));
        return exitUsage;
    }
    if (options.asJson) {
        writeLine(stdout, jsonText(variablesToJson(result), true));
    } else {
        const auto lines = variableLines(result.jobs);
        for (const auto& text : lines) writeLine(stdout, text);
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
                                    "Only this job, numbered as \"jobs\" does")},
                      {sceneArgument("SCENE", options->scene, "Scene file; submitter arguments follow \"--\"")},
                      [options](const _submitterArguments& submitter) { return run(*options, submitter); }});
}

}  // namespace vxH
