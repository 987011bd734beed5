#include "host/commands/commandLine.h"

#include <CLI/CLI.hpp>
#include <QByteArray>
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <iostream>

#include "host/base/displayText.h"
#include "host/base/terminal.h"
#include "host/commands/command.h"

namespace vxH {
namespace {

/// In the order in which the help shows them.
constexpr std::array commands{addJobs, addExplain, addReport, addVars, addDiff, addInfo};

constexpr const char* examples =
    "Examples:\n"
    "  vxscene jobs shot010.hip shot020.hip\n"
    "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000\n"
    "  vxscene explain shot010.hip\n"
    "  vxscene report -o shot010.html shot010.hip\n"
    "  vxscene vars --job 2 shot010.hip\n"
    "  vxscene diff shot010_v001.hip shot010_v002.hip\n"
    "  vxscene jobs --help\n";

constexpr const char* environment =
    "Environment:\n"
    "  NO_COLOR  no colour when it holds a text; the manual page vxscene(1) names the others";

std::string overallHelp() {
    return std::string{examples} + '\n' + exitStatusHelp(exitStatuses) +
           "\nThe statuses of diff are those of diff(1): vxscene diff --help\n\n" + environment;
}

/// What a report of a fault has to tell, one fact a line.
std::string versionText() {
    const auto plugin = printable(defaultPlugin()).toStdString();
    return std::string{"vxscene " VX_VERSION "\nQt "} + qVersion() +
           " (built with " QT_VERSION_STR ")\nrecord layout " + std::to_string(vxJ::structureVersion) + '.' +
           std::to_string(vxJ::structureMinor) + "\nplug-in " + plugin;
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

}  // namespace

std::vector<_command> setUpCommandLine(CLI::App& program) {
    program.name("vxscene");
    program.description("Lists the render jobs of Houdini scene files, without Houdini.");
    const auto help = program.get_formatter();
    help->label("OPTIONS", "options");
    help->label("SUBCOMMAND", "COMMAND");
    help->label("Positionals", "Arguments");
    help->label("REQUIRED", "");
    program.set_help_flag("-h,--help", "Print this help and exit");
    program.set_version_flag("--version", versionText, "Print the versions of the program and its parts and exit");
    program.footer(overallHelp());
    program.require_subcommand(1);

    std::vector<_command> added;
    added.reserve(commands.size());
    for (const auto add : commands) {
        added.push_back(add(program));
        added.back().line->group("Commands");
    }
    return added;
}

int runCommandLine(int argc, const char* const* argv, const _submitterArguments& submitter) {
    CLI::App program;
    const auto added = setUpCommandLine(program);
    try {
        program.parse(argc, argv);
    } catch (const CLI::Success& request) {
        return withOutputWritten(program.exit(request, std::cout), exitFailed);  // prints the help or the version
    } catch (const CLI::ParseError& problem) {
        return wrongUsage(problem.what());
    }
    const auto chosen =
        std::find_if(added.begin(), added.end(), [](const _command& command) { return command.line->parsed(); });
    return withOutputWritten(statusOf(*chosen, submitter), chosen->failure);
}

}  // namespace vxH
