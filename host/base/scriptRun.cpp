#include "host/base/scriptRun.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QStandardPaths>
#include <cerrno>
#include <stdexcept>

#include "host/base/descriptorWrite.h"
#include "host/base/interrupt.h"
#include "host/base/systemReason.h"

namespace vxH {
namespace {

constexpr int notStarted = 127;

[[noreturn]] void failToRun() {
    throw std::runtime_error("the script cannot be run: " + reasonOf(errno).toStdString());
}

/// The words as exec takes them.
std::vector<char*> pointersTo(std::vector<QByteArray>& words) {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (auto& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// A descriptor that has no name in any folder, so that nothing is left of it.
int openScript(const QByteArray& script) {
    const int descriptor = memfd_create("vxscene", 0);
    if (descriptor < 0 || !writeAll(descriptor, script)) failToRun();
    return descriptor;
}

/// The program's own signals are back as they were when this runs.
[[noreturn]] void becomeScript(std::vector<char*> words) {
    const int nothing = open("/dev/null", O_RDONLY);
    if (nothing >= 0) dup2(nothing, STDIN_FILENO);
    execvp("bash", words.data());
    _exit(notStarted);
}

int waitForScript(pid_t process) {
    int status = 0;
    int told = 0;
    std::vector<pollfd> none;
    while (waitpid(process, &status, WNOHANG) == 0) {
        _interrupts::wait(none, -1);
        const int signal = _interrupts::noted();
        if (signal != told) kill(process, signal);
        told = signal;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

bool isInstalled(const QString& program) {
    return !QStandardPaths::findExecutable(program).isEmpty();
}

int runScript(const QByteArray& script, const QStringList& arguments) {
    const int descriptor = openScript(script);
    std::vector<QByteArray> words{"bash", "/dev/fd/" + QByteArray::number(descriptor)};
    for (const auto& argument : arguments) words.push_back(argument.toUtf8());
    int signal = 0;
    int status = 0;
    {
        const _interrupts interrupts;
        const pid_t process = fork();
        if (process < 0) failToRun();
        if (process == 0) {
            const _openSignals opened;
            becomeScript(pointersTo(words));
        }
        status = waitForScript(process);
        signal = _interrupts::noted();
    }
    close(descriptor);
    if (signal != 0) endBySignal(signal);
    if (status == notStarted) throw std::runtime_error("bash cannot be started");
    return status;
}

}  // namespace vxH
