// vxscene: runs the command that its command line asks for.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string_view>

#include "host/commandLine.h"
#include "host/resultCodes.h"
#include "host/terminal.h"

namespace {

using namespace vxH;

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

/// Output is buffered and may fail as late as here.
int withOutputWritten(int status, int failure) {
    std::cout.flush();
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    return std::max({status, outputLost(), failure});
}

int statusOf(const _command& command, const _submitterArguments& submitter) try {
    return command.run(submitter);
} catch (const std::exception& failure) {
    writeError(QString::fromLocal8Bit(failure.what()));
    return command.failure;
}

int run(int argc, char** argv) {
    holdStandardStreams();
    useUtf8Characters();
    _submitterArguments submitter;
    const int argumentsLeft = splitOffSubmitter(argc, argv, submitter);

    CLI::App program;
    const auto commands = setUpCommandLine(program);
    try {
        program.parse(argumentsLeft, argv);
    } catch (const CLI::Success& request) {
        return withOutputWritten(program.exit(request, std::cout), exitFailed);  // prints the help or the version
    } catch (const CLI::ParseError& problem) {
        return wrongUsage(problem.what());
    }
    const auto chosen =
        std::find_if(commands.begin(), commands.end(), [](const _command& command) { return command.line->parsed(); });
    return withOutputWritten(statusOf(*chosen, submitter), chosen->failure);
}

}  // namespace

int main(int argc, char** argv) try { return run(argc, argv); } catch (const std::exception& failure) {
    std::fprintf(stderr, "vxscene: %s\n", failure.what());
    return exitFailed;
}
