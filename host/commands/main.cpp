// vxscene: runs the command that its command line asks for.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string_view>

#include "host/base/resultCodes.h"
#include "host/base/terminal.h"
#include "host/commands/commandLine.h"

namespace {

using namespace vxH;

/// Takes the submitter's arguments off the command line: all after the first "--". @return arguments left
int splitOffSubmitter(int argc, char** argv, _submitterArguments& submitter) {
    char** const end = argv + argc;
    char** const mark = std::find_if(argv, end, [](const char* text) { return std::string_view{text} == "--"; });
    submitter.assign(argv, argv + std::min(argc, 1));
    if (mark != end) submitter.insert(submitter.end(), mark + 1, end);
    return static_cast<int>(mark - argv);
}

int run(int argc, char** argv) {
    holdStandardStreams();
    useUtf8Characters();
    _submitterArguments submitter;
    const int argumentsLeft = splitOffSubmitter(argc, argv, submitter);
    return runCommandLine(argumentsLeft, argv, submitter);
}

/// Ends without taking Qt and the parser apart, piece by piece; all that they hold goes with the process.
int end(int status) {
#ifndef __SANITIZE_ADDRESS__  // which looks for leaks in what is left
    std::fflush(nullptr);
    _exit(status);
#endif
    return status;
}

}  // namespace

int main(int argc, char** argv) try { return end(run(argc, argv)); } catch (const std::exception& failure) {
    std::fprintf(stderr, "vxscene: %s\n", failure.what());
    return exitFailed;
}
