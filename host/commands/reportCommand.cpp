// vxscene report
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "host/access/sceneExplanation.h"
#include "host/base/descriptorWrite.h"
#include "host/base/outputFile.h"
#include "host/base/terminal.h"
#include "host/batch/folderScenes.h"
#include "host/commands/allCommands.h"
#include "host/commands/sceneRun.h"
#include "host/report/reportData.h"
#include "host/report/reportPage.h"

namespace vxH {
namespace {

constexpr const char* standardOutput = "-";

struct _options {
    _sceneOptions scenes;
    std::string output = standardOutput;
    bool asksToCompare = false;
    bool asksForMissing = false;
};

/// The error line of a page without a place. @return the status
int refused(const std::string& output, const QString& problem, int status) {
    writeError(QStringLiteral("%1: the report cannot be written: %2").arg(QString::fromStdString(output), problem));
    return status;
}

/// Why the page must not be written there, before much work is done. Scenes that folders and lists hold are not known
/// yet, but how they are called: "report -o *.hip" names one of them by mistake.
QString problemOf(const _options& options) {
    const auto problem = problemOfOutput(options.output, options.scenes.scenes);
    const auto name = std::filesystem::path(options.output).filename().native();
    const bool isSceneName = problem.isEmpty() && _nameFilter{sceneFileFilter()}.accepts(name);
    return isSceneName ? QStringLiteral("it has the name of a scene") : problem;
}

std::vector<std::string> pathsOf(const std::vector<_reportScene>& scenes) {
    std::vector<std::string> paths;
    paths.reserve(scenes.size());
    for (const auto& scene : scenes) paths.push_back(scene.result.scene.toStdString());
    return paths;
}

int write(const std::string& output, const std::vector<_reportScene>& scenes, const QByteArray& page) {
    if (output == standardOutput) return writeAll(STDOUT_FILENO, page) ? exitSuccess : outputLost(errno);
    if (const auto problem = problemOfOutput(output, pathsOf(scenes)); !problem.isEmpty())
        return refused(output, problem, exitUsage);
    const auto problem = writeOutputFile(output, page);
    return problem.isEmpty() ? exitSuccess : refused(output, problem, exitFailed);
}

int run(const _options& options, const _submitterArguments& submitter) {
    const bool isToTerminal = options.output == standardOutput && standardOutputTerminal().width > 0;
    if (isToTerminal) {
        writeError(
            QStringLiteral("report: a page is not for a terminal: name its file with --output, "
                           "or redirect the output (see vxscene report --help)"));
        return exitUsage;
    }
    if (const auto problem = problemOf(options); !problem.isEmpty()) return refused(options.output, problem, exitUsage);
    std::vector<_reportScene> scenes;
    const auto explain = [&](const QString& scene) { return explainScene(scene, submitter); };
    const auto pack = [&](const _explainedScene& scene) {
        const bool looks = options.asksForMissing && scene.knowsItsJobs();
        return toBytes(
            reportScene(scene, looks ? std::optional{_diskQuestion{true, changeTime(scene.scene)}} : std::nullopt));
    };
    const auto keep = [&](const QByteArray& packed) {
        scenes.push_back(reportSceneFromBytes(packed));
        return true;
    };
    const int status =
        runScenes(options.scenes, loadAndPack(sceneFileFilter(), explain, pack), {keep, [] { return true; }});
    const _reportOrigin origin{QStringLiteral("vxscene " VX_VERSION), QDateTime::currentDateTimeUtc(),
                               options.asksToCompare};
    const int written = write(options.output, scenes, reportPage(reportData(scenes, origin)));
    return written == exitSuccess ? status : written;
}

}  // namespace

_command reportCommand() {
    const auto options = std::make_shared<_options>();
    _command command{"report",
                     "Write a page that shows the jobs of scenes, for a browser; submitter arguments follow \"--\"",
                     "Examples:\n  vxscene report -o shot010.html shot010.hip\n"
                     "  vxscene report --compare -o versions.html shot010_v1.hip shot010_v2.hip\n"
                     "  vxscene report --recursive -o kettle.html /projects/kettle",
                     {fileOption("-o,--output", options->output, "File of the page; - or none: the standard output"),
                      flag("--compare", options->asksToCompare, "Open on what differs between each scene and the next"),
                      flag("--missing", options->asksForMissing,
                           "Compare the files that the jobs leave with the disk, a bar for each job")},
                     {},
                     [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSceneOptions(command, options->scenes);
    return resolving(command);
}

}  // namespace vxH
