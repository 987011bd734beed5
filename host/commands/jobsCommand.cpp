// vxscene jobs
#include "host/access/askPlugin.h"
#include "host/access/ownPlugin.h"
#include "host/access/sceneExplanation.h"
#include "host/access/sceneLoad.h"
#include "host/access/submitterSwitches.h"
#include "host/commands/allCommands.h"
#include "host/commands/resolvingLook.h"
#include "host/commands/sceneRun.h"
#include "host/text/jobTable.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    std::string ownPlugin;
    _sceneOptions scenes;
    _tableOptions table;
    std::vector<_resultFormat> formats{{"table", paragraphs, {}}, jsonFormat(), jsonLinesFormat()};
    const _resultFormat* format = nullptr;

    bool printsTable() const { return format == formats.data(); }
};

/// `--columns`
_option columnsOption(std::vector<_jobColumn>& columns) {
    const auto take = [&columns](const std::string& names) {
        return findJobColumns(QString::fromStdString(names), columns).toStdString();
    };
    return {{"--columns"},
            "Columns of the table, a comma between them: " + usualColumnNames().toStdString() +
                ", or fields of a job as in JSON",
            "NAMES",
            _offered::nothing,
            {},
            false,
            take};
}

int printJobs(const _options& options, const _submitterArguments& submitter, const QString& fileFilter,
              const std::function<_explainedScene(const QString&)>& load) {
    auto format = *options.format;
    if (options.printsTable()) {
        format.text = [&](const _explainedScene& scene, const _terminal& terminal) {
            return jobText(scene, submitter, options.table, terminal);
        };
    }
    return printScenes(options.scenes, fileFilter, load, format);
}

/// What the plug-in says of itself.
struct _plugin {
    bool isBuiltIn = false;  // its code is in the program as well
    bool isOwn = false;      // it is that, or tells the same of itself: the readers built in can explain its jobs
    QString fileFilter = sceneFileFilter();
};

/// A plug-in whose file does not show that it is the program's own is asked, in a child.
/// @return the exit status where there is no plug-in
int findOut(const _options& options, _plugin& plugin) {
    const auto path = QString::fromStdString(options.plugin);
    const bool isOwnFile = options.plugin == options.ownPlugin;
    plugin.isBuiltIn = plugin.isOwn = isOwnFile && isBuiltLikeProgram(path);
    if (plugin.isBuiltIn) return exitSuccess;
    const auto answer = askForInfo({path, options.scenes.timeout});
    if (answer.code != 0) return noPlugin(answer.failure);
    const auto problem = problemOfInfo(answer.info);
    if (problem.isEmpty()) plugin.fileFilter = answer.info.fileFilter;
    if (!problem.isEmpty()) writeError(QStringLiteral("%1: %2").arg(path, problem));
    plugin.isOwn = isOwnFile && isOwnPlugin(answer.info);
    return exitSuccess;
}

/// The table needs explanations. The readers built in, which explain, are those of the program's own plug-in: one load
/// is enough, and a plug-in that is built in need not be loaded.
int run(const _options& options, const _submitterArguments& submitter) {
    _plugin plugin;
    if (const int status = findOut(options, plugin); status != exitSuccess) return status;
    const bool resolves = asksToResolve(submitter);
    if (plugin.isOwn && options.printsTable()) {
        const auto explain = [&](const QString& scene) {
            return resolves ? explainScene(scene, submitter, vxE::_surveyBreadth::nodes)
                            : explainAndLook(scene, submitter, options.scenes);
        };
        return printJobs(options, submitter, plugin.fileFilter, explain);
    }
    _pluginLibrary library;  // loaded here, once: the plug-in is as fresh in each child as it was at the fork
    const auto problem = plugin.isBuiltIn ? QString{} : library.load(QString::fromStdString(options.plugin));
    if (!problem.isEmpty()) return noPlugin(problem);
    const auto loader = plugin.isBuiltIn ? builtInLoader() : _sceneLoader{library.loadSceneFile};
    const auto load = [&](const QString& scene) -> _explainedScene {
        if (plugin.isOwn && resolves) return {loadWithNotes(scene, submitter), {}, {}};
        _explainedScene result{loadScene(loader, scene, submitter), {}, {}};
        tellWhyThereAreNoJobs(result, submitter);
        return result;
    };
    return printJobs(options, submitter, plugin.fileFilter, load);
}

}  // namespace

_command jobsCommand() {
    const auto options = std::make_shared<_options>();
    const auto plugin = pluginOption(options->plugin);
    options->ownPlugin = options->plugin;
    _command command{
        "jobs",
        "Print the render jobs of scenes; submitter arguments follow \"--\"",
        "A \"!\" marks jobs that explain warns of, and odd values.\n"
        "\n"
        "Examples:\n  vxscene jobs shot010.hip shot020.hip\n"
        "  vxscene jobs --columns driver,frames,output,imageWidth shot010.hip\n"
        "  vxscene jobs --recursive --timeout 60 /projects/kettle\n"
        "  find /projects -name '*.hip' -newer yesterday -print0 | vxscene jobs --format jsonl -\n"
        "  vxscene jobs --format json shot010.hip -- -houdiniBuildVersion 50000",
        {plugin, formatOption(options->formats, options->format, "A table, a JSON list, or one JSON object a line"),
         colourOption(options->scenes.colour),
         flag("--wide", options->table.isWide, "The table whole, whatever the terminal's width"),
         columnsOption(options->table.columns)},
        {},
        [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSceneOptions(command, options->scenes);
    return resolving(command);
}

}  // namespace vxH
