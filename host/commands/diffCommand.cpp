// vxscene diff
#include "host/commands/command.h"
#include "host/commands/resultOutput.h"
#include "host/text/jobDiffText.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    std::string oldScene;
    std::string newScene;
    bool asJson = false;
    bool everyField = false;
};

/// A scene without usable output names has failed, but its jobs are known: there are none.
bool jobsAreKnown(int code) {
    return code == vxP::resultSuccess || code == vxP::resultNoUsableOutput;
}

/// Loads both scenes; both are told when both fail. @return exitSame while the jobs of all are known
int load(const _options& options, const _submitterArguments& submitter, QJsonObject& oldResult,
         QJsonObject& newResult) {
    const auto plugin = QString::fromStdString(options.plugin);
    int status = exitSame;
    for (const auto& [scene, result] : {std::pair{&options.oldScene, &oldResult}, {&options.newScene, &newResult}}) {
        *result = loadSceneApart(plugin, scene->c_str(), submitter);
        const int code = (*result)[codeKey].toInt();
        if (code == hostNoPlugin) return noPlugin((*result)[errorKey].toString());
        if (code != vxP::resultSuccess) sceneFailed(*result);
        if (!jobsAreKnown(code)) status = exitTrouble;
    }
    return status;
}

int run(const _options& options, const _submitterArguments& submitter) {
    QJsonObject oldResult;
    QJsonObject newResult;
    const int status = load(options, submitter, oldResult, newResult);
    if (status != exitSame) return status;
    const auto diff = diffJobs(oldResult, newResult, options.everyField ? _compared::everyField : _compared::jobs);
    if (options.asJson) {
        writeLine(stdout, jsonText(diffToJson(diff, oldResult, newResult), true));
    } else {
        const auto lines = diffLines(diff, oldResult, newResult, standardOutputTerminal());
        for (const auto& text : lines) writeLine(stdout, text);
    }
    return diff.differences.empty() ? exitSame : exitDifferent;
}

}  // namespace

_command addDiff(CLI::App& program) {
    const auto options = std::make_shared<_options>();
    auto* const line = addCommand(
        program, "diff", "Print which jobs came, went or changed from one scene to another",
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
            "  vxscene diff --format json shot010_v001.hip shot010_v002.hip -- -houdiniBuildVersion 50000");
    addPluginOption(*line, options->plugin);
    addTextOrJson(*line, options->asJson);
    addFlag(*line, "--all", options->everyField, "Every field that differs, whatever the reason");
    addArgument(*line, "OLD", options->oldScene, "Scene file to compare with");
    addArgument(*line, "NEW", options->newScene, "Scene file; submitter arguments follow \"--\"");
    return {line, [options](const _submitterArguments& submitter) { return run(*options, submitter); }, exitTrouble};
}

}  // namespace vxH
