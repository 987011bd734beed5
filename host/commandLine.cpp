#include "host/commandLine.h"

#include <CLI/CLI.hpp>
#include <QByteArray>
#include <array>

#include "host/displayText.h"

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
           "  diff has its own, as diff(1) does: vxscene diff --help\n\n" + environment;
}

/// What a report of a fault has to tell, one fact a line.
std::string versionText() {
    const auto plugin = printable(defaultPlugin()).toStdString();
    return std::string{"vxscene " VX_VERSION "\nQt "} + qVersion() +
           " (built with " QT_VERSION_STR ")\nrecord layout " + std::to_string(vxJ::structureVersion) + '.' +
           std::to_string(vxJ::structureMinor) + "\nplug-in " + plugin;
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

}  // namespace vxH
