// vxscene jobs
#include "host/command.h"
#include "host/resultOutput.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    std::vector<std::string> scenes;
    _format format = _format::table;
};

int run(const _options& options, const _submitterArguments& submitter) {
    const auto plugin = QString::fromStdString(options.plugin);
    _resultOutput output{options.format, standardOutputTerminal()};
    int status = exitSuccess;
    for (const auto& scene : options.scenes) {
        const auto result = loadSceneApart(plugin, scene.c_str(), submitter);
        const int code = result[codeKey].toInt();
        if (code == hostNoPlugin) {
            status = noPlugin(result[errorKey].toString());
            break;
        }
        output.print(result);
        if (code != vxP::resultSuccess) status = sceneFailed(result);
    }
    output.finish();
    return status;
}

}  // namespace

_command addJobs(CLI::App& program) {
    const auto options = std::make_shared<_options>();
    auto* const line =
        program.add_subcommand("jobs", "Print the render jobs of scenes; submitter arguments follow \"--\"");
    addPluginOption(*line, options->plugin);
    addChoice<_format>(*line, "--format", options->format,
                       {{"table", _format::table}, {"json", _format::json}, {"jsonl", _format::jsonl}},
                       "A table, a JSON list, or one JSON object a line");
    line->footer(
        "Examples:\n  vxscene jobs shot010.hip shot020.hip\n"
        "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000");
    line->add_option("SCENE", options->scenes, "Scene files")->required()->type_name("");
    return {line, [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
}

}  // namespace vxH
