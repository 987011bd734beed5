// vxscene export
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <filesystem>
#include <memory>

#include "host/access/sceneExplanation.h"
#include "host/base/descriptorWrite.h"
#include "host/base/outputFile.h"
#include "host/base/terminal.h"
#include "host/batch/folderScenes.h"
#include "host/commands/allCommands.h"
#include "host/commands/submissionRun.h"
#include "host/engines/engines.h"
#include "host/engines/stepNames.h"

namespace vxH {
namespace {

namespace fs = std::filesystem;

constexpr const char* standardOutput = "-";

struct _options {
    _submissionOptions submission;
    const _engine* engine = engines.front();
    std::string output = standardOutput;
    bool isDryRun = false;
};

std::vector<std::string> engineNames() {
    std::vector<std::string> names;
    names.reserve(engines.size());
    for (const auto* const engine : engines) names.push_back(QString{engine->name}.toStdString());
    return names;
}

/// What the engines are: "shell: script for one machine; slurm: ...".
std::string engineTexts() {
    QStringList texts;
    for (const auto* const engine : engines) texts += engine->name + QLatin1String{": "} + engine->description;
    return texts.join(QLatin1String{"; "}).toStdString();
}

/// More than one may come of what is named.
bool mayBeSeveral(const _sceneOptions& options) {
    std::error_code ignored;
    const auto& scenes = options.scenes;
    return scenes.size() != 1 || scenes.front() == standardOutput || fs::is_directory(scenes.front(), ignored);
}

bool isFolder(const std::string& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

/// What is wrong with where the submissions go; empty: nothing.
QString problemOf(const _options& options) {
    if (options.isDryRun || isFolder(options.output)) return {};
    if (mayBeSeveral(options.submission.scenes))
        return QStringLiteral("several scenes: name a folder that there is with --output");
    if (options.output == standardOutput) return {};
    const bool isSceneName = _nameFilter{sceneFileFilter()}.accepts(fs::path(options.output).filename().native());
    return isSceneName ? QStringLiteral("it has the name of a scene")
                       : problemOfOutput(options.output, options.submission.scenes.scenes);
}

int refused(const std::string& output, const QString& problem, int status) {
    writeError(QStringLiteral("%1: cannot be written: %2").arg(QString::fromStdString(output), problem));
    return status;
}

/// Writes what comes, each to its place.
class _writer {
 public:
    explicit _writer(const _options& commandsOptions) : options(commandsOptions) {}

    bool write(const _exportedScene& scene) {
        const bool isShown = options.isDryRun || options.output == standardOutput;
        if (options.isDryRun) return print(scene.plan.join(QLatin1Char('\n')).toUtf8() + '\n');
        if (isShown) return print(scene.text);
        const std::string path = isFolder(options.output) ? pathIn(options.output, scene) : options.output;
        QString problem = problemOfOutput(path, {scene.scene.toStdString()});
        if (problem.isEmpty()) problem = writeOutputFile(path, scene.text);
        if (problem.isEmpty() && options.engine->isProgram && !makeExecutable(path))
            problem = QStringLiteral("it cannot be made executable");
        if (!problem.isEmpty()) status = worseOf(status, refused(path, problem, exitFailed));
        return true;
    }

    int status = exitSuccess;

 private:
    bool print(const QByteArray& text) {
        if (writeAll(STDOUT_FILENO, text)) return true;
        status = outputLost(errno);
        return false;
    }

    std::string pathIn(const std::string& folder, const _exportedScene& scene) {
        return (fs::path(folder) / (names.next(scene.name) + options.engine->fileEnding).toStdString()).native();
    }

    static bool makeExecutable(const std::string& path) {
        QFile file{QString::fromStdString(path)};
        constexpr auto mayRun = QFileDevice::ExeOwner | QFileDevice::ExeUser | QFileDevice::ExeGroup;
        return file.setPermissions(file.permissions() | mayRun);
    }

    const _options& options;
    _uniqueNames names{options.engine->submissionNames};
};

int run(const _options& options, const _submitterArguments& submitter) {
    if (const auto problem = problemOf(options); !problem.isEmpty()) return refused(options.output, problem, exitUsage);
    _writer writer{options};
    const int status = exportScenes(options.submission, *options.engine, submitter,
                                    [&](const _exportedScene& scene) { return writer.write(scene); });
    return worseOf(status, writer.status);
}

}  // namespace

_command exportCommand() {
    const auto options = std::make_shared<_options>();
    _command command{"export",
                     "Write the jobs of scenes as tasks of a farm's engine; submitter arguments follow \"--\"",
                     "Examples:\n  vxscene export --to shell -o shot010.sh shot010.hip\n"
                     "  vxscene export --dry-run --frames 1001-1010 shot010.hip\n"
                     "  vxscene export --recursive --skip-invalid -o submissions /projects/kettle",
                     {wordOption(
                          "--to", engineNames(), [options](std::size_t place) { options->engine = engines[place]; },
                          ("The engine that is to run them: " + engineTexts()).c_str()),
                      fileOption("-o,--output", options->output,
                                 "File, or folder for a file of each scene; - or none: standard output"),
                      flag("--dry-run", options->isDryRun, "Print what would run, write nothing")},
                     {},
                     [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSubmissionOptions(command, options->submission);
    return resolving(command);
}

}  // namespace vxH
