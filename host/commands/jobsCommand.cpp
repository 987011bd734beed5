// vxscene jobs
#include "host/access/askPlugin.h"
#include "host/access/sceneExplanation.h"
#include "host/access/sceneLoad.h"
#include "host/access/submitterSwitches.h"
#include "host/commands/allCommands.h"
#include "host/commands/resolvingLook.h"
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
    const auto answer = askForInfo({path, options.scenes.timeout});
    if (answer.code != 0) return noPlugin(answer.failure);
    const auto infoProblem = problemOfInfo(answer.info);
    const auto fileFilter = infoProblem.isEmpty() ? answer.info.fileFilter : sceneFileFilter();
    if (!infoProblem.isEmpty()) writeError(QStringLiteral("%1: %2").arg(path, infoProblem));
    _pluginLibrary plugin;  // loaded here, once: the plug-in is as fresh in each child as it was at the fork
    if (const auto problem = plugin.load(path); !problem.isEmpty()) return noPlugin(problem);
    const bool isOwnPlugin = path == defaultPlugin();
    const bool isText = options.format == &options.formats.front();
    const bool resolves = asksToResolve(submitter);
    const auto load = [&](const QString& scene) -> _explainedScene {
        if (resolves && isOwnPlugin && !isText) return {loadWithNotes(scene, submitter), {}};
        const auto loadPlainly = [&] { return loadScene(plugin.loadSceneFile, scene, submitter); };
        if (resolves || !isOwnPlugin || !isText) return {loadPlainly(), {}};
        _resolvingLook look(plugin.loadSceneFile, scene, submitter, options.scenes.timeout);
        _explainedScene result{loadPlainly(), {}};
        result.whenResolved = look.compareWith(result);
        return result;
    };
    return printScenes(options.scenes, fileFilter, load, *options.format);
}

}  // namespace

_command jobsCommand() {
    const auto options = std::make_shared<_options>();
    _command command{
        "jobs",
        "Print the render jobs of scenes; submitter arguments follow \"--\"",
        "Examples:\n  vxscene jobs shot010.hip shot020.hip\n"
        "  vxscene jobs --recursive --timeout 60 /projects/kettle\n"
        "  find /projects -name '*.hip' -newer yesterday -print0 | vxscene jobs --format jsonl -\n"
        "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000",
        {pluginOption(options->plugin),
         formatOption(options->formats, options->format, "A table, a JSON list, or one JSON object a line"),
         colourOption(options->scenes.colour)},
        {},
        [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSceneOptions(command, options->scenes);
    return resolving(command);
}

}  // namespace vxH
