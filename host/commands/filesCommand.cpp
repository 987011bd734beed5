// vxscene files
#include "host/access/sceneExplanation.h"
#include "host/commands/allCommands.h"
#include "host/commands/sceneRun.h"
#include "host/files/filesText.h"
#include "host/results/sceneJson.h"

namespace vxH {
namespace {

constexpr char missingMark = 'm';  // in front of what a scene's child hands on, where a file is missing
constexpr char wholeMark = '.';

struct _options {
    _sceneOptions scenes;
    std::vector<_formatOf<_sceneFiles>> formats{
        {"text", paragraphs, [](const auto& scene, const auto&) { return filesText(scene); }},
        {"json", jsonList, [](const auto& scene, const auto&) { return jsonText(filesToJson(scene), true); }},
        {"jsonl", lines, [](const auto& scene, const auto&) { return jsonText(filesToJson(scene), false); }}};
    const _formatOf<_sceneFiles>* format = nullptr;
    bool asksForMissing = false;
    bool readsNamesOnly = false;
    bool takesAnyAge = false;
};

std::string faultHelp() {
    std::string help;
    for (const auto& row : faultWords)
        help += "  " + QString{row.word}.leftJustified(8).toStdString() + row.meaning + '\n';
    return help;
}

std::optional<_diskQuestion> questionOf(const _options& options, const QString& scene) {
    if (!options.asksForMissing) return std::nullopt;
    return _diskQuestion{!options.readsNamesOnly, options.takesAnyAge ? std::nullopt : changeTime(scene)};
}

int run(const _options& options, const _submitterArguments& submitter) {
    if (!options.asksForMissing && (options.readsNamesOnly || options.takesAnyAge)) {
        writeError(QStringLiteral("files: --names-only and --any-age go with --missing"));
        return exitUsage;
    }
    const _terminal terminal = standardOutputTerminal();
    const auto load = [&](const QString& scene) {
        return sceneFilesOf(explainScene(scene, submitter), questionOf(options, scene));
    };
    const auto pack = [&](const _sceneFiles& scene) {
        const auto text = options.format->text(scene, terminal).toUtf8();
        return (scene.isMissing() ? missingMark : wholeMark) + text;
    };
    _resultOutput output{options.format->frame};
    bool isMissing = false;
    const auto print = [&](const QByteArray& packed) {
        isMissing = isMissing || packed.startsWith(missingMark);
        return output.print(packed.mid(1));
    };
    const int status = runScenes(options.scenes, loadAndPack(sceneFileFilter(), load, pack),
                                 {print, [&] { return output.finish(); }, terminal.width > 0});
    if (status == exitFailed) return exitTrouble;
    return status == exitSuccess && isMissing ? int{exitMissing} : status;
}

}  // namespace

_command filesCommand() {
    const auto options = std::make_shared<_options>();
    _command command{"files",
                     "Print the files that the jobs of scenes will leave, or which of them are missing",
                     "A line for each name: the job, how many files, their path with # for frame digits, and the "
                     "frames. What holds\n"
                     "a variable that only Houdini or the renderer knows is said to be unknown.\n"
                     "With --missing a line for each name and what is wrong with its files:\n" +
                         faultHelp() + "\n" + exitStatusHelp(fileStatuses) +
                         "\nExamples:\n"
                         "  vxscene files shot010.hip\n"
                         "  vxscene files --missing --resolve shot010.hip\n"
                         "  vxscene files --missing --recursive --format jsonl /projects/kettle",
                     {formatOption(options->formats, options->format, "Text, a JSON list, or one JSON object a line"),
                      flag("--missing", options->asksForMissing, "Compare with the disk and print what is missing"),
                      flag("--names-only", options->readsNamesOnly, "Only look for names: no sizes, no times"),
                      flag("--any-age", options->takesAnyAge, "A file that is older than the scene counts as there")},
                     {},
                     [options](const _submitterArguments& submitter) { return run(*options, submitter); },
                     exitTrouble};
    addSceneOptions(command, options->scenes);
    return resolving(command);
}

}  // namespace vxH
