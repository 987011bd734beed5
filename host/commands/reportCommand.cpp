// vxscene report
#include <QSaveFile>

#include "host/access/sceneExplanation.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/commands/sceneRun.h"
#include "host/report/reportData.h"
#include "host/report/reportPage.h"

namespace vxH {
namespace {

struct _options {
    _sceneOptions scenes;
    std::string output;  // empty: the standard output
};

/// Whole or not at all. @return the problem, empty when written
QString writtenTo(const QString& fileName, const QByteArray& page) {
    QSaveFile file{fileName};
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(page) == page.size() && file.commit();
    return isWritten ? QString{} : file.errorString();
}

int write(const std::string& output, const QByteArray& page) {
    if (output.empty()) {
        std::fwrite(page.constData(), 1, static_cast<std::size_t>(page.size()), stdout);
        return exitSuccess;
    }
    const auto fileName = QString::fromStdString(output);
    const auto problem = writtenTo(fileName, page);
    if (problem.isEmpty()) return exitSuccess;
    writeError(QStringLiteral("%1: the report cannot be written: %2").arg(fileName, problem));
    return exitFailed;
}

int run(const _options& options, const _submitterArguments& submitter) {
    if (options.output.empty() && standardOutputTerminal().width > 0) {
        writeError(
            QStringLiteral("report: a page is not for a terminal: name its file with --output, "
                           "or redirect the output (see vxscene report --help)"));
        return exitUsage;
    }
    std::vector<_reportScene> scenes;
    const auto explain = [&](const QString& scene) { return explainScene(scene, submitter); };
    const auto pack = [](const _explainedScene& scene) { return toBytes(reportScene(scene)); };
    const auto keep = [&](const QByteArray& packed) {
        scenes.push_back(reportSceneFromBytes(packed));
        return true;
    };
    const int status = runScenes(options.scenes, {sceneFileFilter(), explain}, {pack, keep, [] { return true; }});
    const int written = write(options.output, reportPage(reportData(scenes, QStringLiteral("vxscene " VX_VERSION))));
    return written == exitSuccess ? status : written;
}

}  // namespace

_command reportCommand() {
    const auto options = std::make_shared<_options>();
    _command command{
        "report",
        "Write a page that shows the jobs of scenes, for a browser; submitter arguments follow \"--\"",
        "Examples:\n  vxscene report -o shot010.html shot010.hip\n"
        "  vxscene report -o versions.html shot010_v1.hip shot010_v2.hip\n"
        "  vxscene report --recursive -o kettle.html /projects/kettle",
        {fileOption({"-o", "--output"}, options->output, "File of the page; otherwise the standard output")},
        {},
        [options](const _submitterArguments& submitter) { return run(*options, submitter); }};
    addSceneOptions(command, options->scenes);
    return resolving(command);
}

}  // namespace vxH
