// vxscene: its commands, and what holds for all of them.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <string_view>
#include <vector>

#include "host/command.h"
#include "host/resultCodes.h"
#include "host/terminal.h"

namespace {

using namespace vxH;

/// In the order in which the help shows them.
constexpr std::array commands{addJobs, addExplain, addReport, addVars, addDiff, addInfo};

constexpr const char* examples =
    "Examples:\n"
    "  vxscene info\n"
    "  vxscene jobs shot010.hip shot020.hip\n"
    "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000\n"
    "  vxscene report -o shot010.html shot010.hip\n"
    "  vxscene vars --job 2 shot010.hip\n"
    "  vxscene diff shot010_v001.hip shot010_v002.hip\n"
    "\n"
    "Exit status: 0 all went well, 1 a scene failed, 2 wrong usage, 3 the plug-in cannot be loaded;\n"
    "that of diff is told by vxscene diff --help.";

/// Takes the submitter's arguments off the command line: all behind the first "--". @return arguments left
int splitOffSubmitter(int argc, char** argv, _submitterArguments& submitter) {
    char** const end = argv + argc;
    char** const mark = std::find_if(argv, end, [](const char* text) { return std::string_view{text} == "--"; });
    submitter.assign(argv, argv + std::min(argc, 1));
    if (mark != end) submitter.insert(submitter.end(), mark + 1, end);
    return static_cast<int>(mark - argv);
}

int wrongUsage(const char* problem) {
    writeError(QString::fromUtf8(problem).simplified() + QLatin1String{" (see vxscene --help)"});
    return exitUsage;
}

int statusOf(const _command& command, const _submitterArguments& submitter) try {
    return command.run(submitter);
} catch (const std::exception& failure) {
    writeError(QString::fromLocal8Bit(failure.what()));
    return command.failure;
}

/// Runs the command and ends its output, which is buffered and may fail as late as here.
int runCommand(const _command& command, const _submitterArguments& submitter) {
    const int status = statusOf(command, submitter);
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    const int failed = outputLost();
    return std::max(status, std::max(failed, command.failure));
}

int run(int argc, char** argv) {
    holdStandardStreams();
    useUtf8Characters();
    _submitterArguments submitter;
    const int argumentsLeft = splitOffSubmitter(argc, argv, submitter);

    CLI::App program{"Lists the render jobs of Houdini scene files.", "vxscene"};
    program.set_version_flag("--version", "vxscene " VX_VERSION);
    program.require_subcommand(1);
    program.footer(examples);
    std::vector<_command> added;
    added.reserve(commands.size());
    for (const auto add : commands) added.push_back(add(program));
    try {
        program.parse(argumentsLeft, argv);
    } catch (const CLI::Success& request) {
        return program.exit(request);  // prints the help or the version
    } catch (const CLI::ParseError& problem) {
        return wrongUsage(problem.what());
    }
    const auto chosen =
        std::find_if(added.begin(), added.end(), [](const _command& command) { return command.line->parsed(); });
    return runCommand(*chosen, submitter);
}

}  // namespace

int main(int argc, char** argv) try { return run(argc, argv); } catch (const std::exception& failure) {
    std::fprintf(stderr, "vxscene: %s\n", failure.what());
    return exitFailed;
}
