// vxscene explain
#include <map>

#include "host/command.h"
#include "host/explanationText.h"
#include "host/resultOutput.h"
#include "host/sceneExplanation.h"
#include "host/scenePath.h"
#include "host/terminal.h"

namespace vxH {
namespace {

struct _options {
    std::string scene;
    bool asJson = false;
};

int run(const _options& options, const _submitterArguments& submitter) {
    const auto [path, problem] = absoluteScenePath(options.scene.c_str());
    const auto result = explainScene(path, submitter);
    if (options.asJson) {
        writeLine(stdout, jsonText(result, true));
    } else {
        for (const auto& line : explanationLines(result, standardOutputTerminal())) writeLine(stdout, line);
    }
    return exitSuccess;
}

}  // namespace

_command addExplain(CLI::App& program) {
    const auto options = std::make_shared<_options>();
    auto* const line = program.add_subcommand("explain", "Tell what became of every driver, and why");
    addTextOrJson(*line, options->asJson);
    line->add_option("scene", options->scene, "Scene file")->required()->type_name("SCENE");
    return {line, [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
}

}  // namespace vxH
