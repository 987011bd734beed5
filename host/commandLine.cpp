#include "host/commandLine.h"

#include <algorithm>
#include <array>

#include "host/command.h"
#include "host/displayText.h"
#include "host/terminal.h"

namespace vxH {
namespace {

/// In the order in which the help shows them.
constexpr std::array commands{addInfo, addJobs, addVars};

constexpr const char* examples =
    "Examples:\n"
    "  vxscene jobs shot010.hip shot020.hip\n"
    "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000\n"
    "  vxscene vars --job 2 shot010.hip\n"
    "  vxscene jobs --help\n";

constexpr const char* environment =
    "Environment:\n"
    "  NO_COLOR  no colour when it holds a text; the manual page vxscene(1) names the others";

std::string exitStatusHelp() {
    std::string text = "Exit status:\n";
    for (const auto& [status, meaning] : exitStatuses) text += "  " + std::to_string(status) + "  " + meaning + '\n';
    return text;
}

std::string overallHelp() {
    return std::string{examples} + '\n' + exitStatusHelp() + '\n' + environment;
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
        return program.exit(request);  // prints the help or the version
    } catch (const CLI::ParseError& problem) {
        return wrongUsage(problem.what());
    }
    const auto chosen =
        std::find_if(added.begin(), added.end(), [](const _command& command) { return command.line->parsed(); });
    return chosen->run(submitter);
}

}  // namespace vxH
