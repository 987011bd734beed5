#include "host/commands/commandLine.h"

#include <CLI/CLI.hpp>
#include <QByteArray>
#include <algorithm>
#include <exception>
#include <sstream>
#include <string_view>
#include <utility>

#include "host/access/askPlugin.h"
#include "host/access/pluginLibrary.h"
#include "host/access/sceneExplanation.h"
#include "host/access/submitterSwitches.h"
#include "host/base/displayText.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/commands/suggestion.h"
#include "jobs/VX_DataTypes_jobs_defines.h"

namespace vxH {
namespace {

const _option helpOption{{"-h", "--help"}, "Print this help and exit", {}, {}, {}, {}, {}};
const _option versionOption{
    {"--version"}, "Print the versions of the program and its parts and exit", {}, {}, {}, {}, {}};
const _option verboseOption{
    {"--verbose"}, "With --version: what the plug-in says of itself, and how scenes are searched", {}, {}, {}, {}, {}};
constexpr std::chrono::seconds mostForPlugin{10};

constexpr const char* examples =
    "Examples:\n"
    "  vxscene jobs shot010.hip shot020.hip\n"
    "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000\n"
    "  vxscene explain shot010.hip\n"
    "  vxscene report -o shot010.html shot010.hip\n"
    "  vxscene vars --job 2 shot010.hip\n"
    "  vxscene diff shot010_v001.hip shot010_v002.hip\n"
    "  vxscene values --driven shot010.hip /out/mantra1\n"
    "  vxscene jobs --help\n";

constexpr std::size_t widestOption = 36;  // columns of the help in front of what it says

constexpr const char* environment =
    "Environment:\n"
    "  NO_COLOR  no colour when it holds a text; the manual page vxscene(1) names the others";

std::string overallHelp() {
    return std::string{examples} + '\n' + exitStatusHelp(exitStatuses) +
           "\nThe statuses of diff are those of diff(1): vxscene diff --help\n\n" + environment;
}

/// Whether the plug-in can be loaded, and what scenes are searched with.
QString verboseText() {
    const auto answer = askForInfo({defaultPlugin(), mostForPlugin});
    const QString problem = answer.code == 0 ? problemOfInfo(answer.info) : answer.failure;
    const QString state = problem.isEmpty() ? QStringLiteral("answers, for %1").arg(answer.info.fileFilter) : problem;
    return QStringLiteral("\nplug-in %1\nsearch %2").arg(printable(state), searchMethod());
}

/// What a report of a fault should say, one fact per line.
std::string versionText(bool isVerbose) {
    const auto plugin = printable(defaultPlugin()).toStdString();
    return std::string{"vxscene " VX_VERSION "\nQt "} + qVersion() +
           " (built with " QT_VERSION_STR ")\nrecord layout " + std::to_string(vxJ::structureVersion) + '.' +
           std::to_string(vxJ::structureMinor) + "\nplug-in " + plugin +
           (isVerbose ? verboseText().toStdString() : std::string{});
}

/// @param command  that was typed; empty: none
int wrongUsage(const QString& problem, const QString& command) {
    const auto help = command.isEmpty() ? QString{} : command + QLatin1Char(' ');
    writeError(QStringLiteral("%1 (see vxscene %2--help)").arg(problem.simplified(), help));
    return exitUsage;
}

QStringList optionNames(const _command& command) {
    QStringList names;
    for (const auto& option : command.options) {
        for (const auto& name : option.names) names.append(QString::fromStdString(name));
    }
    return names;
}

/// What is wrong with the words that the parser has no place for; empty where there are none.
/// @param part  the command that was typed, or the program itself: of `parts` the first
QString problemOfWords(const std::vector<std::string>& words, const _command& part,
                       const std::vector<_command>& parts) {
    if (words.empty()) return {};
    const auto isOption = [](const std::string& word) { return word.size() > 1 && word.front() == '-'; };
    const auto firstOption = std::find_if(words.begin(), words.end(), isOption);
    if (firstOption != words.end()) {
        const auto name = QString::fromStdString(firstOption->substr(0, firstOption->find('=')));
        return QStringLiteral("there is no option %1%2").arg(name, suggestionFor(name, optionNames(part)));
    }
    const auto word = QString::fromStdString(words.front());
    if (!part.name.empty()) return QStringLiteral("there is no place for the argument %1").arg(word);
    QStringList names;
    for (const auto& command : parts) {
        if (!command.name.empty()) names.append(QString::fromStdString(command.name));
    }
    return QStringLiteral("there is no command %1%2").arg(word, suggestionFor(word, names));
}

/// The error line of arguments that nobody takes notice of; another plug-in may have switches of its own.
void tellOfArguments(const _submitterArguments& submitter, bool isOtherPlugin) {
    const auto left = isOtherPlugin ? QStringList{} : argumentsNotTaken(submitter);
    if (left.isEmpty()) return;
    QString suggestion;
    for (auto argument = left.begin(); suggestion.isEmpty() && argument != left.end(); ++argument)
        suggestion = suggestionFor(*argument, submitterSwitches());
    writeError(
        QStringLiteral("warning: no switch of the plug-in takes %1%2").arg(left.join(QLatin1Char(' ')), suggestion));
}

int statusOf(const _command& command, const _submitterArguments& submitter) try {
    return command.run(submitter);
} catch (const std::exception& failure) {
    writeError(QString::fromUtf8(failure.what()));
    return command.failure;
}

/// "-o,--output", as the parser takes names.
std::string nameList(const _option& option) {
    std::string list;
    for (const auto& name : option.names) list += (list.empty() ? "" : ",") + name;
    return list;
}

void takeValue(const _option& option, const std::string& value) {
    const auto problem = option.take(value);
    if (!problem.empty())
        throw CLI::ValidationError(option.names.empty() ? option.label : option.names.back(), problem);
}

void addOption(CLI::App& line, const _option& option) {
    if (option.label.empty()) {
        line.add_flag_callback(
            nameList(option), [&option] { takeValue(option, {}); }, option.description);
        return;
    }
    const std::function take = [&option](const std::string& value) { takeValue(option, value); };
    line.add_option_function(nameList(option), take, option.description)->type_name(option.label);
}

/// An argument is known by its label, which the help shows as its name.
void addArgument(CLI::App& line, const _option& argument) {
    const std::function take = [&argument](const std::string& value) { takeValue(argument, value); };
    const std::function takeAll = [take](const std::vector<std::string>& values) {
        for (const auto& value : values) take(value);
    };
    auto* const added = argument.repeats ? line.add_option_function(argument.label, takeAll, argument.description)
                                         : line.add_option_function(argument.label, take, argument.description);
    added->required(!argument.isOptional)->type_name("");
}

/// @param command  has to outlive the program, whose parser gives it the values
CLI::App* addCommand(CLI::App& program, const _command& command) {
    auto* const line = program.add_subcommand(command.name, command.description);
    line->footer(command.footer);
    line->group("Commands");
    for (const auto& option : command.options) addOption(*line, option);
    for (const auto& argument : command.arguments) addArgument(*line, argument);
    return line;
}

void describe(CLI::App& program) {
    program.name("vxscene");
    program.description("Lists the render jobs of Houdini scene files, without Houdini.");
    const auto help = program.get_formatter();
    help->column_width(widestOption);
    help->label("OPTIONS", "options");
    help->label("SUBCOMMAND", "COMMAND");
    help->label("Positionals", "Arguments");
    help->label("REQUIRED", "");
    program.set_help_flag(nameList(helpOption), helpOption.description);
    const auto* const verbose = program.add_flag(nameList(verboseOption), verboseOption.description);
    program.set_version_flag(
        nameList(versionOption), [verbose] { return versionText(verbose->count() > 0); }, versionOption.description);
    program.footer(overallHelp());
    program.require_subcommand(1);
}

/// The command of this name alone: making the options of all takes longer than a small scene. All where none has it.
std::vector<_command> commandsFor(std::string_view name) {
    std::vector<_command> made;
    made.reserve(allCommands.size());
    for (const auto make : allCommands) {
        made.push_back(make());
        if (made.back().name == name) return {std::move(made.back())};
    }
    return made;
}

}  // namespace

std::vector<_command> commandLineParts() {
    std::vector<_command> parts{{{}, {}, {}, {versionOption, verboseOption}, {}, {}}};
    for (const auto& command : commandsFor({})) parts.push_back(command);
    for (auto& part : parts) part.options.insert(part.options.begin(), helpOption);
    return parts;
}

int runCommandLine(int argc, const char* const* argv, const _submitterArguments& submitter) {
    const auto commands = commandsFor(argc > 1 ? argv[1] : "");
    CLI::App program;
    describe(program);
    std::vector<const CLI::App*> lines;
    lines.reserve(commands.size());
    for (const auto& command : commands) lines.push_back(addCommand(program, command));
    const auto chosen = [&] {
        const auto line = std::find_if(lines.begin(), lines.end(), [](const auto* one) { return one->parsed(); });
        return static_cast<std::size_t>(line - lines.begin());
    };
    try {
        program.parse(argc, argv);
    } catch (const CLI::Success& request) {
        std::ostringstream text;
        program.exit(request, text);  // the help or the version
        print(QString::fromStdString(text.str()).trimmed());
        return exitSuccess;
    } catch (const CLI::ParseError& problem) {
        const auto parts = commandLineParts();
        const auto name = chosen() < commands.size() ? commands[chosen()].name : std::string{};
        const auto part = std::find_if(parts.begin(), parts.end(), [&](const auto& one) { return one.name == name; });
        const auto words = problemOfWords(program.remaining(true), *part, parts);
        const auto other = argc > 1 ? QString::fromUtf8(problem.what()) : QStringLiteral("no command is given");
        return wrongUsage(words.isEmpty() ? other : words, QString::fromStdString(name));
    }
    const auto& command = commands[chosen()];
    const auto* const plugin = lines[chosen()]->get_option_no_throw("--plugin");
    tellOfArguments(submitter, plugin != nullptr && plugin->count() > 0);
    return statusOf(command, submitter);
}

}  // namespace vxH
