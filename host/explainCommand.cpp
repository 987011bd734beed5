// vxscene explain
#include <map>

#include "host/command.h"
#include "host/explanationText.h"
#include "host/sceneExplanation.h"
#include "host/sceneRun.h"

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
    static const std::map<std::string, _format> formats{
        {"text", _format::table}, {"json", _format::json}, {"jsonl", _format::jsonl}};
    const auto options = std::make_shared<_options>();
    auto* const line = program.add_subcommand(
        "explain", "Tell what became of every node that may render, and why; submitter arguments follow \"--\"");
    line->add_option("--format", options->format, "text, json (a list) or jsonl (one object a line)")
        ->transform(CLI::CheckedTransformer(formats).description(""))
        ->type_name("FORMAT");
    addSceneOptions(*line, options->scenes);
    line->footer(
        "The readers are those of the plug-in that comes with this program.\n"
        "\n"
        "Examples:\n"
        "  vxscene explain shot010.hip\n"
        "  vxscene explain --format json shot010.hip | jq '.[].warnings'\n"
        "  vxscene explain --recursive --format jsonl /projects/kettle");
    return {line, [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
}

}  // namespace vxH
