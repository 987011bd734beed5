// vxscene explain
#include "host/access/sceneExplanation.h"
#include "host/access/submitterSwitches.h"
#include "host/commands/allCommands.h"
#include "host/commands/resolvingLook.h"
#include "host/commands/sceneRun.h"
#include "host/text/explanationText.h"

namespace vxH {
namespace {

struct _options {
    _sceneOptions scenes;
    std::vector<_resultFormat> formats{{"text", paragraphs, explanationText}, jsonFormat(), jsonLinesFormat()};
    const _resultFormat* format = nullptr;
};

int run(const _options& options, const _submitterArguments& submitter) {
    const bool looks = options.format == &options.formats.front() && !asksToResolve(submitter);
    const auto explain = [&](const QString& scene) {
        if (!looks) return explainScene(scene, submitter);
        _resolvingLook look(builtInLoader(), scene, submitter, options.scenes.timeout);
        auto result = explainScene(scene, submitter);
        result.whenResolved = look.compareWith(result);
        return result;
    };
    return printScenes(options.scenes, sceneFileFilter(), explain, *options.format);
}

}  // namespace

_command explainCommand() {
    const auto options = std::make_shared<_options>();
    _command command{"explain",
                     "Tell what became of every node that may render, and why; submitter arguments follow \"--\"",
                     "The readers are those of the plug-in that comes with this program.\n"
                     "\n"
                     "Examples:\n"
                     "  vxscene explain shot010.hip\n"
                     "  vxscene explain --format json shot010.hip | jq '.[].warnings'\n"
                     "  vxscene explain --recursive --format jsonl /projects/kettle",
                     {formatOption(options->formats, options->format, "Text, a JSON list, or one JSON object a line"),
                      colourOption(options->scenes.colour)},
                     {},
                     [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSceneOptions(command, options->scenes);
    return resolving(command);
}

}  // namespace vxH
