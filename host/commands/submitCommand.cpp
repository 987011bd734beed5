// vxscene submit
#include <memory>

#include "host/base/scriptRun.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/commands/submissionRun.h"
#include "host/engines/engines.h"

namespace vxH {
namespace {

/// An engine that takes submissions over from a script.
struct _target {
    const _engine* engine;
    const char* program;  ///< that its script submits with
    const char* hold;     ///< what the script is given so that nothing starts before it is released
};
constexpr _target targets[] = {
    {&slurmEngine, "sbatch", "--hold"},
};

struct _options {
    _submissionOptions submission;
    const _target* target = targets;
    bool isHeld = false;
};

std::vector<std::string> targetNames() {
    std::vector<std::string> names;
    for (const auto& target : targets) names.emplace_back(target.engine->name.latin1());
    return names;
}

int run(const _options& options, const _submitterArguments& submitter) {
    const auto& target = *options.target;
    if (!isInstalled(QLatin1String{target.program})) {
        writeError(QStringLiteral("%1 is not installed, or not where PATH leads to: nothing is submitted")
                       .arg(QLatin1String{target.program}));
        return exitFailed;
    }
    std::vector<_exportedScene> scenes;
    int status = exportScenes(options.submission, *target.engine, submitter, [&](const _exportedScene& scene) {
        scenes.push_back(scene);
        return true;
    });
    const QStringList arguments = options.isHeld ? QStringList{QLatin1String{target.hold}} : QStringList{};
    for (const auto& scene : scenes) {
        if (runScript(scene.text, arguments) == 0) continue;
        writeError(scene.scene + QLatin1String{": it is not submitted"});
        status = worseOf(status, exitFailed);
    }
    return status;
}

}  // namespace

_command submitCommand() {
    const auto options = std::make_shared<_options>();
    _command command{"submit",
                     "Hand the jobs of scenes to a farm's engine on this machine; submitter arguments follow \"--\"",
                     "Examples:\n  vxscene submit shot010.hip\n  vxscene submit --hold --frames 1001-1010 shot010.hip",
                     {wordOption(
                          "--to", targetNames(), [options](std::size_t place) { options->target = &targets[place]; },
                          "The engine that is to run them"),
                      flag("--hold", options->isHeld, "Let nothing start before it is released")},
                     {},
                     [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSubmissionOptions(command, options->submission);
    return resolving(command);
}

}  // namespace vxH
