// fork, a pipe, waitpid.
#include "host/base/childProcess.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDataStream>
#include <QIODevice>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "host/base/descriptorWrite.h"

namespace vxH {
namespace {

constexpr std::size_t readSize = 65536;

QString systemError() {
    return QString::fromUtf8(std::strerror(errno));
}

QByteArray readAll(int descriptor) {
    QByteArray bytes;
    std::array<char, readSize> part;
    for (;;) {
        const auto got = read(descriptor, part.data(), part.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return bytes;
        bytes.append(part.data(), static_cast<decltype(bytes.size())>(got));
    }
}

/// When the parent ends, this process ends too, even when the parent has ended already.
void endWithParent(pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(EXIT_FAILURE);
}

// How a result travels.

QByteArray toBytes(const _childResult& result) {
    QByteArray bytes;
    QDataStream{&bytes, QIODevice::WriteOnly} << result.code << result.failure << result.output;
    return bytes;
}

/// @return false where the bytes hold no whole result
bool readBytes(const QByteArray& bytes, _childResult& result) {
    QDataStream stream{bytes};
    stream >> result.code >> result.failure >> result.output;
    return stream.status() == QDataStream::Ok;
}

/// An exception of the work ends the child with a signal and goes no further.
[[noreturn]] void childMain(const _childWork& work, int pipe) noexcept {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    const bool written = writeAll(pipe, toBytes(work()));
    std::fflush(nullptr);  // what the plug-in printed
    _exit(written ? EXIT_SUCCESS : EXIT_FAILURE);
}

int waitForEnd(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
    return status;
}

}  // namespace

_child startChild(const _childWork& work) {
    std::fflush(nullptr);  // the child must not write the parent's buffers once more
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return {-1, -1, systemError()};
    const pid_t parent = getpid();
    const pid_t process = fork();
    if (process == 0) {
        endWithParent(parent);
        close(ends[0]);
        childMain(work, ends[1]);
    }
    const QString problem = process < 0 ? systemError() : QString{};
    close(ends[1]);
    if (process < 0) close(ends[0]);
    return {process, process < 0 ? -1 : ends[0], problem};
}

_childResult collectChild(const _child& child) {
    if (child.process < 0) return resultWithoutChild(child);
    const QByteArray sent = readAll(child.pipe);
    close(child.pipe);
    return resultOfChild(sent, waitForEnd(child.process));
}

_childResult resultWithoutChild(const _child& child) {
    return {hostNoResult, QStringLiteral("cannot start a process: ") + child.problem, {}};
}

_childResult resultOfChild(const QByteArray& sent, int status) {
    if (WIFSIGNALED(status)) return {hostCrashed, QStringLiteral("crashed (signal %1)").arg(WTERMSIG(status)), {}};
    _childResult result;
    if (WEXITSTATUS(status) == EXIT_SUCCESS && readBytes(sent, result)) return result;
    return {hostNoResult, QStringLiteral("ended without a result (exit status %1)").arg(WEXITSTATUS(status)), {}};
}

}  // namespace vxH
