// vxscene vars
#include <limits>

#include "host/commands/command.h"
#include "host/commands/resultOutput.h"
#include "host/text/jobVariableList.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    std::string scene;
    bool asJson = false;
    int jobNumber = allJobs;
};

int run(const _options& options, const _submitterArguments& submitter) {
    auto result = loadSceneApart(QString::fromStdString(options.plugin), options.scene.c_str(), submitter,
                                 [&](const auto& jobs) { return jobVariableLists(jobs, options.jobNumber); });
    const int code = result[codeKey].toInt();
    const auto lists = result[jobsKey].toArray();
    if (code == hostNoPlugin) return noPlugin(result[errorKey].toString());
    if (code == vxP::resultSuccess && lists.isEmpty() && options.jobNumber != allJobs) {
        writeError(QStringLiteral("%1: there is no job %2")
                       .arg(result[sceneKey].toString(), QString::number(options.jobNumber)));
        return exitUsage;
    }
    if (options.asJson) {
        result.remove(messageKey);  // it belongs to the submission
        writeLine(stdout, jsonText(result, true));
    } else {
        const auto lines = jobVariableLines(lists);
        for (const auto& text : lines) writeLine(stdout, text);
    }
    return code == vxP::resultSuccess ? exitSuccess : sceneFailed(result);
}

}  // namespace

_command addVars(CLI::App& program) {
    const auto options = std::make_shared<_options>();
    auto* const line =
        addCommand(program, "vars", "Print the named variables of a scene's jobs",
                   "Examples:\n  vxscene vars shot010.hip\n  vxscene vars --job 2 --format json shot010.hip");
    addPluginOption(*line, options->plugin);
    addTextOrJson(*line, options->asJson);
    addNumber(*line, "--job", options->jobNumber, {1, std::numeric_limits<int>::max()},
              "Only this job, numbered as \"jobs\" does", "N");
    addArgument(*line, "SCENE", options->scene, "Scene file; submitter arguments follow \"--\"");
    return {line, [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
}

}  // namespace vxH
