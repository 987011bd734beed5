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
    _sceneReceiver(const _sceneWork& sceneWork, const _sceneUse& sceneUse, _progress& sceneProgress)
        : work(sceneWork), use(sceneUse), progress(sceneProgress) {}

    bool receive(const _batchResult& outcome) {
        if (!outcome.isScene) return tellOfList(outcome.result.failure);
        const auto& [code, failure, output] = outcome.result;
        const auto head = failedHead(outcome.scene, code, failure);
        const bool hasOutput = code >= 0 || !output.isEmpty();  // a plug-in may have codes of any kind
        if (use.printsToTerminal) progress.clear();
        if (!keepsOn(use.take(hasOutput ? output : work.packFailed(head)))) return false;
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

    const _sceneWork& work;
    const _sceneUse& use;
    _progress& progress;
    bool isWritable = true;
    int status = exitSuccess;
};

_batchLimits limitsOf(const _sceneOptions& options) {
    return {options.parallel, options.timeout, _batchLimits::windowFor(options.parallel)};
}

}  // namespace

QString lineOf(const _sceneHead& scene) {
    return !scene.knowsItsJobs() || scene.isCut() ? scene.problem() : QString{};
}

int runScenes(const _sceneOptions& options, const _sceneWork& work, const _sceneUse& use) {
    _sceneList scenes{options.scenes, options.recursive, work.fileFilter, options.shard};
    _progress progress{!options.noProgress};
    _sceneReceiver receiver{work, use, progress};
    const auto receive = [&](const _batchResult& result) { return receiver.receive(result); };
    runBatch(scenes, work.run, limitsOf(options), progress, receive);
    return receiver.finish();
}

int printScenes(const _sceneOptions& options, const _sceneWork& work, const _frame& frame) {
    _resultOutput output{frame};
    const auto print = [&](const QByteArray& text) { return output.print(text); };
    return runScenes(options, work, {print, [&] { return output.finish(); }, standardOutputTerminal().width > 0});
}

}  // namespace vxH
