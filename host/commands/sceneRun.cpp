// A child sends what is handed on, so that this process has nothing to take apart.
#include "host/commands/sceneRun.h"

#include <QDataStream>
#include <QIODevice>
#include <QJsonDocument>
#include <cerrno>
#include <csignal>

#include "host/base/interrupt.h"
#include "host/batch/sceneBatch.h"
#include "host/commands/command.h"
#include "host/results/sceneResult.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {
namespace {

/// A result as a child sends it.
struct _sentResult {
    qint32 code = 0;
    QString error;
    QByteArray packed;
};

QByteArray bytesOf(const _sentResult& result) {
    QByteArray bytes;
    QDataStream{&bytes, QIODevice::WriteOnly} << result.code << result.error << result.packed;
    return bytes;
}

_sentResult fromBytes(const QByteArray& bytes) {
    _sentResult result;
    QDataStream stream{bytes};
    stream >> result.code >> result.error >> result.packed;
    return result;
}

class _sceneReceiver {
 public:
    _sceneReceiver(const _sceneRun& sceneRun, _progress& sceneProgress) : run(sceneRun), progress(sceneProgress) {}

    _sentResult sent(const QJsonObject& result) const {
        return {result[codeKey].toInt(), result[errorKey].toString(), run.pack(result)};
    }

    bool receive(const _batchResult& result) {
        if (!result.isScene) return tellOfList(result.failure);
        const auto got =
            result.code == 0 ? fromBytes(result.output) : sent(sceneResult(result.scene, result.code, result.failure));
        if (run.printsToTerminal) progress.clear();
        if (!keepsOn(run.take(got.packed))) return false;
        if (got.code == vxP::resultSuccess) return true;
        progress.clear();
        status = sceneFailed(sceneResult(result.scene, got.code, got.error));
        return true;
    }

    /// @return the exit status, unless a signal ends the program
    int finish() {
        progress.clear();
        if (hasOutput) keepsOn(run.finish());
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

    bool keepsOn(bool isWritten) {
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
    _sceneReceiver receiver{run, progress};
    const auto work = [&](const QString& scene) { return bytesOf(receiver.sent(run.work(scene))); };
    runBatch(scenes, work, limitsOf(options), progress, [&](const auto& result) { return receiver.receive(result); });
    return receiver.finish();
}

int printScenes(const _sceneOptions& options, const QString& fileFilter, const _sceneWork& work, _format format,
                const _resultTable& table) {
    const _terminal terminal = standardOutputTerminal();
    _resultOutput output{format};
    const auto pack = [&](const QJsonObject& result) { return resultText(result, format, table, terminal); };
    const auto print = [&](const QByteArray& text) { return output.print(text); };
    return runScenes(options, {fileFilter, work, pack, print, [&] { return output.finish(); }, terminal.width > 0});
}

int collectScenes(const _sceneOptions& options, const QString& fileFilter, const _sceneWork& work,
                  QJsonArray& results) {
    const auto pack = [](const QJsonObject& result) { return QJsonDocument(result).toJson(QJsonDocument::Compact); };
    const auto keep = [&](const QByteArray& packed) {
        results.append(QJsonDocument::fromJson(packed).object());
        return true;
    };
    return runScenes(options, {fileFilter, work, pack, keep, [] { return true; }});
}

}  // namespace vxH
