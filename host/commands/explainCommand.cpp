// vxscene explain
#include "host/access/sceneExplanation.h"
#include "host/commands/command.h"
#include "host/commands/sceneRun.h"
#include "host/text/explanationText.h"

namespace vxH {
namespace {

struct _options {
    _sceneOptions scenes;
    _format format = _format::table;
};

int run(const _options& options, const _submitterArguments& submitter) {
    const auto explain = [&](const QString& scene) { return explainScene(scene, submitter); };
    return printScenes(options.scenes, sceneFileFilter(), explain, options.format, explanationText);
}

}  // namespace

_command addExplain(CLI::App& program) {
    const auto options = std::make_shared<_options>();
    auto* const line =
        addCommand(program, "explain",
                   "Tell what became of every node that may render, and why; submitter arguments follow \"--\"",
                   "The readers are those of the plug-in that comes with this program.\n"
                   "\n"
                   "Examples:\n"
                   "  vxscene explain shot010.hip\n"
                   "  vxscene explain --format json shot010.hip | jq '.[].warnings'\n"
                   "  vxscene explain --recursive --format jsonl /projects/kettle");
    addChoice<_format>(*line, "--format", options->format,
                       {{"text", _format::table}, {"json", _format::json}, {"jsonl", _format::jsonl}},
                       "Text, a JSON list, or one JSON object a line");
    addSceneOptions(*line, options->scenes);
    return {line, [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
}

}  // namespace vxH
