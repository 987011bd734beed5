// A child sends the bytes to print, so that this process has nothing to take apart.
#include "host/sceneRun.h"

#include <QDataStream>
#include <QIODevice>
#include <cerrno>
#include <csignal>

#include "host/command.h"
#include "host/interrupt.h"
#include "host/sceneBatch.h"
#include "host/sceneResult.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {
namespace {

/// A result as a child sends it.
struct _printedResult {
    qint32 code = 0;
    QString error;
    QByteArray text;
};

QByteArray packed(const _printedResult& result) {
    QByteArray bytes;
    QDataStream{&bytes, QIODevice::WriteOnly} << result.code << result.error << result.text;
    return bytes;
}

_printedResult unpacked(const QByteArray& bytes) {
    _printedResult result;
    QDataStream stream{bytes};
    stream >> result.code >> result.error >> result.text;
    return result;
}

class _scenePrinting {
 public:
    _scenePrinting(const _sceneRun& sceneRun, _progress& sceneProgress)
        : run(sceneRun), progress(sceneProgress), terminal(standardOutputTerminal()), output(sceneRun.format) {}

    _printedResult printed(const QJsonObject& result) const {
        return {result[codeKey].toInt(), result[errorKey].toString(),
                resultText(result, run.format, run.table, terminal)};
    }

    bool receive(const _batchResult& result) {
        if (!result.isScene) return tellOfList(result.failure);
        const auto shown = result.code == 0 ? unpacked(result.output)
                                            : printed(sceneResult(result.scene, result.code, result.failure));
        if (terminal.width > 0) progress.clear();
        if (!keepsOutput(output.print(shown.text))) return false;
        if (shown.code == vxP::resultSuccess) return true;
        progress.clear();
        status = sceneFailed(sceneResult(result.scene, shown.code, shown.error));
        return true;
    }

    /// @return the exit status, unless a signal ends the program
    int finish() {
        progress.clear();
        if (hasOutput) keepsOutput(output.finish());
        if (const int signal = _interrupts::noted(); signal != 0) endBySignal(signal);
        return status;
    }

 private:
    bool tellOfList(const QString& failure) {
        progress.clear();
        writeError(failure);
        status = exitFailed;
        return true;
    }

    bool keepsOutput(bool isWritten) {
        if (isWritten) return true;
        hasOutput = false;
        if (errno == EPIPE) _interrupts::note(SIGPIPE);
        if (_interrupts::noted() == 0) {
            progress.clear();
            status = outputLost();
        }
        return false;
    }

    const _sceneRun& run;
    _progress& progress;
    _terminal terminal;
    _resultOutput output;
    bool hasOutput = true;
    int status = exitSuccess;
};

_batchLimits limitsOf(const _sceneOptions& options) {
    const std::chrono::duration<double> timeout{options.timeout};
    return {options.parallel, std::chrono::ceil<std::chrono::milliseconds>(timeout),
            _batchLimits::windowFor(options.parallel)};
}

}  // namespace

int runScenes(const _sceneOptions& options, const _sceneRun& run) {
    _sceneList scenes{options.scenes, options.recursive, run.fileFilter};
    _progress progress{!options.noProgress};
    _scenePrinting printing{run, progress};
    const auto work = [&](const QString& scene) { return packed(printing.printed(run.work(scene))); };
    runBatch(scenes, work, limitsOf(options), progress, [&](const auto& result) { return printing.receive(result); });
    return printing.finish();
}

}  // namespace vxH
