// vxscene jobs
#include "host/access/askPlugin.h"
#include "host/commands/command.h"
#include "host/commands/sceneRun.h"
#include "host/text/jobTable.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    _sceneOptions scenes;
    _format format = _format::table;
};

int run(const _options& options, const _submitterArguments& submitter) {
    const auto path = QString::fromStdString(options.plugin);
    const auto info = askPlugin(path, readPluginInfo);
    if (info.code != 0) return noPlugin(info.failure);
    _pluginLibrary plugin;  // loaded here, once: the plug-in is as fresh in each child as it was at the fork
    if (const auto problem = plugin.load(path); !problem.isEmpty()) return noPlugin(problem);
    const auto load = [&](const QString& scene) {
        return loadScene(plugin.loadSceneFile, scene, submitter, jobsToJson);
    };
    return printScenes(options.scenes, info.answer[fileFilterKey].toString(), load, options.format, jobText);
}

}  // namespace

_command addJobs(CLI::App& program) {
    const auto options = std::make_shared<_options>();
    auto* const line =
        addCommand(program, "jobs", "Print the render jobs of scenes; submitter arguments follow \"--\"",
                   "Examples:\n  vxscene jobs shot010.hip shot020.hip\n"
                   "  vxscene jobs --recursive --timeout 60 /projects/kettle\n"
                   "  find /projects -name '*.hip' -newer yesterday -print0 | vxscene jobs --format jsonl -\n"
                   "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000");
    addPluginOption(*line, options->plugin);
    addChoice<_format>(*line, "--format", options->format,
                       {{"table", _format::table}, {"json", _format::json}, {"jsonl", _format::jsonl}},
                       "A table, a JSON list, or one JSON object a line");
    addSceneOptions(*line, options->scenes);
    return {line, [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
}

}  // namespace vxH
