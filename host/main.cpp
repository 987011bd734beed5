// vxscene: the commands and their options.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/askPlugin.h"
#include "host/displayText.h"
#include "host/jobVariableList.h"
#include "host/resultOutput.h"
#include "host/sceneLoad.h"

namespace {

using namespace vxH;

struct _commandLine {
    std::string plugin = pluginBesideProgram().toStdString();
    std::vector<std::string> scenes;
    _format jobsFormat = _format::table;
    bool asJson = false;
    int jobNumber = allJobs;
    _submitterArguments submitter;  // what stands behind "--", after the program's name
};

constexpr const char* examples =
    "Examples:\n"
    "  vxscene info\n"
    "  vxscene jobs shot010.hip shot020.hip\n"
    "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000\n"
    "  vxscene vars --job 2 shot010.hip\n"
    "\n"
    "Exit status: 0 all went well, 1 a scene failed, 2 wrong usage, 3 the plug-in cannot be loaded.";

int noPlugin(const QString& problem) {
    writeError(QLatin1String{"the plug-in cannot be loaded: "} + problem);
    return exitNoPlugin;
}

/// One "name: value" line for each member.
void printInfoLines(const QJsonObject& info) {
    for (auto member = info.begin(); member != info.end(); ++member) {
        const QString value = member->isString() ? member->toString() : QString::number(member->toInt());
        writeLine(stdout, member.key() + QLatin1String{": "} + printable(value));
    }
}

int runInfo(const _commandLine& line) {
    const auto plugin = QString::fromStdString(line.plugin);
    const auto [info, code, failure] = askPlugin(plugin, readPluginInfo);
    if (code == hostNoPlugin) return noPlugin(failure);
    if (code != 0) {
        writeError(plugin + QLatin1String{": "} + failure);
        return exitFailed;
    }
    if (line.asJson) {
        writeLine(stdout, jsonText(info, true));
    } else {
        printInfoLines(info);
    }
    const int answer = info[codeKey].toInt();
    if (answer == vxP::resultSuccess) return exitSuccess;
    writeError(QStringLiteral("%1: %2 (code %3)").arg(plugin, sentenceOfCode(answer), QString::number(answer)));
    return exitFailed;
}

/// The line of a scene that failed, and its exit status.
int sceneFailed(const QJsonObject& result) {
    writeError(
        QStringLiteral("%1: %2 (code %3)")
            .arg(result[sceneKey].toString(), result[errorKey].toString(), QString::number(result[codeKey].toInt())));
    return exitFailed;
}

int runJobs(const _commandLine& line) {
    const auto plugin = QString::fromStdString(line.plugin);
    _resultOutput output{line.jobsFormat, standardOutputTerminal()};
    int status = exitSuccess;
    for (const auto& scene : line.scenes) {
        const auto result = loadSceneApart(plugin, scene.c_str(), line.submitter);
        const int code = result[codeKey].toInt();
        if (code == hostNoPlugin) {
            status = noPlugin(result[errorKey].toString());
            break;
        }
        output.print(result);
        if (code != vxP::resultSuccess) status = sceneFailed(result);
    }
    output.finish();
    return status;
}

int runVars(const _commandLine& line) {
    const auto plugin = QString::fromStdString(line.plugin);
    auto result = loadSceneApart(plugin, line.scenes[0].c_str(), line.submitter,
                                 [&](const auto& jobs) { return jobVariableLists(jobs, line.jobNumber); });
    const int code = result[codeKey].toInt();
    const auto lists = result[jobsKey].toArray();
    if (code == hostNoPlugin) return noPlugin(result[errorKey].toString());
    if (code == vxP::resultSuccess && lists.isEmpty() && line.jobNumber != allJobs) {
        writeError(
            QStringLiteral("%1: there is no job %2").arg(result[sceneKey].toString(), QString::number(line.jobNumber)));
        return exitUsage;
    }
    if (line.asJson) {
        result.remove(messageKey);  // it belongs to the submission
        writeLine(stdout, jsonText(result, true));
    } else {
        const auto lines = jobVariableLines(lists);
        for (const auto& text : lines) writeLine(stdout, text);
    }
    return code == vxP::resultSuccess ? exitSuccess : sceneFailed(result);
}

/// Takes the submitter's arguments off the command line: all behind the first "--". @return arguments left
int splitOffSubmitter(int argc, char** argv, _submitterArguments& submitter) {
    char** const end = argv + argc;
    char** const mark = std::find_if(argv, end, [](const char* text) { return std::string_view{text} == "--"; });
    submitter.assign(argv, argv + std::min(argc, 1));
    if (mark != end) submitter.insert(submitter.end(), mark + 1, end);
    return static_cast<int>(mark - argv);
}

void addPluginOption(CLI::App* command, _commandLine& line) {
    command->add_option("--plugin", line.plugin, "Plug-in file instead of the one beside this program")
        ->type_name("FILE");
}

void addTextOrJson(CLI::App* command, _commandLine& line) {
    static const std::map<std::string, bool> formats{{"text", false}, {"json", true}};
    command->add_option("--format", line.asJson, "text or json")
        ->transform(CLI::CheckedTransformer(formats).description(""))
        ->type_name("FORMAT");
}

void addInfo(CLI::App& app, _commandLine& line) {
    auto* const info = app.add_subcommand("info", "Print the plug-in's info record");
    addPluginOption(info, line);
    addTextOrJson(info, line);
}

void addJobs(CLI::App& app, _commandLine& line) {
    static const std::map<std::string, _format> formats{
        {"table", _format::table}, {"json", _format::json}, {"jsonl", _format::jsonl}};
    auto* const jobs = app.add_subcommand("jobs", "Print the render jobs of scenes; submitter arguments follow \"--\"");
    addPluginOption(jobs, line);
    jobs->add_option("--format", line.jobsFormat, "table, json (a list) or jsonl (one object a line)")
        ->transform(CLI::CheckedTransformer(formats).description(""))
        ->type_name("FORMAT");
    jobs->add_option("scenes", line.scenes, "Scene files")->required()->type_name("SCENE");
}

void addVars(CLI::App& app, _commandLine& line) {
    auto* const vars = app.add_subcommand("vars", "Print the named variables of a scene's jobs");
    addPluginOption(vars, line);
    addTextOrJson(vars, line);
    vars->add_option("--job", line.jobNumber, "Only this job, numbered as \"jobs\" does")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()).description(""))
        ->type_name("N");
    vars->add_option("scene", line.scenes, "Scene file; submitter arguments follow \"--\"")
        ->required()
        ->expected(1)
        ->type_name("SCENE");
}

int wrongUsage(const char* problem) {
    writeError(QString::fromUtf8(problem).simplified() + QLatin1String{" (see vxscene --help)"});
    return exitUsage;
}

/// Buffered output may fail as late as here.
int withOutputWritten(int status) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    writeError(QStringLiteral("the output could not be written"));
    return status == exitSuccess ? exitFailed : status;
}

int run(int argc, char** argv) {
    useUtf8Characters();
    _commandLine line;
    const int argumentsLeft = splitOffSubmitter(argc, argv, line.submitter);

    CLI::App app{"Lists the render jobs of Houdini scene files.", "vxscene"};
    app.set_version_flag("--version", "vxscene " VX_VERSION);
    app.require_subcommand(1);
    app.footer(examples);
    addInfo(app, line);
    addJobs(app, line);
    addVars(app, line);
    try {
        app.parse(argumentsLeft, argv);
    } catch (const CLI::Success& request) {
        return app.exit(request);  // prints the help or the version
    } catch (const CLI::ParseError& problem) {
        return wrongUsage(problem.what());
    }
    if (app.got_subcommand("info")) return withOutputWritten(runInfo(line));
    return withOutputWritten(app.got_subcommand("vars") ? runVars(line) : runJobs(line));
}

}  // namespace

int main(int argc, char** argv) try { return run(argc, argv); } catch (const std::exception& failure) {
    std::fprintf(stderr, "vxscene: %s\n", failure.what());
    return exitFailed;
}
