// Children pack what is handed on, so that this process only passes it along.
#include "host/commands/sceneRun.h"

#include <cerrno>
#include <csignal>

#include "host/base/interrupt.h"
#include "host/batch/sceneBatch.h"

namespace vxH {
namespace {

class _sceneReceiver {
 public:
    _sceneReceiver(const _sceneUse& sceneUse, _progress& sceneProgress) : use(sceneUse), progress(sceneProgress) {}

    bool receive(const _batchResult& outcome) {
        if (!outcome.isScene) return tellOfList(outcome.result.failure);
        const auto& [code, failure, output] = outcome.result;
        const auto head = failedHead(outcome.scene, code, failure);
        const bool hasOutput = code >= 0 || !output.isEmpty();  // a plug-in may have codes of any kind
        if (use.printsToTerminal) progress.clear();
        if (!keepsOn(use.take(hasOutput ? output : use.pack({{head, {}}, {}})))) return false;
        if (head.knowsItsJobs() && failure.isEmpty()) return true;
        progress.clear();
        status = worseOf(status, tellOf(head));
        return true;
    }

    /// @return the exit status, unless a signal ends the program
    int finish() {
        progress.clear();
        if (isWritable) keepsOn(use.finish());
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
        const int error = errno;
        isWritable = false;
        if (error == EPIPE) _interrupts::note(SIGPIPE);
        if (_interrupts::noted() == 0) {
            progress.clear();
            status = outputLost(error);
        }
        return false;
    }

    const _sceneUse& use;
    _progress& progress;
    bool isWritable = true;
    int status = exitSuccess;
};

/// What the error stream has to say. That a scene has no jobs is a result like others.
QString lineOf(const _sceneHead& scene) {
    return !scene.knowsItsJobs() || scene.isCut() ? scene.problem() : QString{};
}

_batchLimits limitsOf(const _sceneOptions& options) {
    return {options.parallel, options.timeout, _batchLimits::windowFor(options.parallel)};
}

}  // namespace

int runScenes(const _sceneOptions& options, const _sceneSource& source, const _sceneUse& use) {
    _sceneList scenes{options.scenes, options.recursive, source.fileFilter};
    _progress progress{!options.noProgress};
    _sceneReceiver receiver{use, progress};
    const auto work = [&](const QString& path) -> _childResult {
        const auto scene = source.load(path);
        return {scene.code, lineOf(scene), use.pack(scene)};
    };
    runBatch(scenes, work, limitsOf(options), progress, [&](const auto& result) { return receiver.receive(result); });
    return receiver.finish();
}

int printScenes(const _sceneOptions& options, const _sceneSource& source, const _resultFormat& format) {
    const _terminal terminal = standardOutputTerminal(options.colour);
    _resultOutput output{format.frame};
    const auto pack = [&](const _explainedScene& scene) { return format.text(scene, terminal).toUtf8(); };
    const auto print = [&](const QByteArray& text) { return output.print(text); };
    return runScenes(options, source, {pack, print, [&] { return output.finish(); }, terminal.width > 0});
}

}  // namespace vxH
