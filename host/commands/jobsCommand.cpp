// vxscene jobs
#include "host/access/askPlugin.h"
#include "host/access/sceneExplanation.h"
#include "host/access/sceneLoad.h"
#include "host/commands/allCommands.h"
#include "host/commands/sceneRun.h"
#include "host/text/jobTable.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    _sceneOptions scenes;
    std::vector<_resultFormat> formats{{"table", paragraphs, jobText}, jsonFormat(), jsonLinesFormat()};
    const _resultFormat* format = nullptr;
};

int run(const _options& options, const _submitterArguments& submitter) {
    const auto path = QString::fromStdString(options.plugin);
    const auto answer = askForInfo(path);
    if (answer.code != 0) return noPlugin(answer.failure);
    _pluginLibrary plugin;  // loaded here, once: the plug-in is as fresh in each child as it was at the fork
    if (const auto problem = plugin.load(path); !problem.isEmpty()) return noPlugin(problem);
    const auto load = [&](const QString& scene) -> _explainedScene {
        _explainedScene result{loadScene(plugin.loadSceneFile, scene, submitter), {}};
        tellWhyThereAreNoJobs(result, submitter);
        return result;
    };
    return printScenes(options.scenes, {answer.info.fileFilter, load}, *options.format);
}

}  // namespace

_command jobsCommand() {
    const auto options = std::make_shared<_options>();
    _command command{"jobs",
                     "Print the render jobs of scenes; submitter arguments follow \"--\"",
                     "Examples:\n  vxscene jobs shot010.hip shot020.hip\n"
                     "  vxscene jobs --recursive --timeout 60 /projects/kettle\n"
                     "  find /projects -name '*.hip' -newer yesterday -print0 | vxscene jobs --format jsonl -\n"
                     "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000",
                     {pluginOption(options->plugin), formatOption(options->formats, options->format,
                                                                  "A table, a JSON list, or one JSON object a line")},
                     {},
                     [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSceneOptions(command, options->scenes);
    return resolving(command);
}

}  // namespace vxH
