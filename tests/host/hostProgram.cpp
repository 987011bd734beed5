#include "tests/host/hostProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QProcess>
#include <array>
#include <cstdio>
#include <thread>

namespace vxTest {
namespace {

constexpr int patience = 30000;  // milliseconds, far more than anything takes
constexpr int pause = 200;

std::array<int, 2> openPipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) std::abort();
    return ends;
}

void closeOnce(int& descriptor) {
    if (descriptor >= 0) close(descriptor);
    descriptor = -1;
}

}  // namespace

_hostRun run(const std::string& program, const std::vector<std::string>& arguments,
             const std::vector<const char*>& environment, const QByteArray& input) {
    QProcess process;
    auto variables = QProcess::systemEnvironment();
    for (const auto* variable : environment) variables += QString::fromUtf8(variable);
    process.setEnvironment(variables);
    QStringList texts;
    for (const auto& argument : arguments) texts += QString::fromStdString(argument);
    process.start(QString::fromStdString(program), texts);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    const int status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return {status, process.readAllStandardOutput(), process.readAllStandardError()};
}

_hostRun runCommand(const char* command, std::vector<std::string> arguments,
                    const std::vector<const char*>& environment, const QByteArray& input) {
    arguments.insert(arguments.begin(), {command, "--plugin", VX_FAKE_PLUGIN});
    return run(VX_SCENE_PROGRAM, arguments, environment, input);
}

_runningJobs::_runningJobs(const std::vector<std::string>& arguments) {
    const auto in = openPipe();
    const auto out = openPipe();
    const auto alive = openPipe();
    fcntl(alive[1], F_SETFD, 0);  // all its processes inherit it
    posix_spawn_file_actions_t streams;
    posix_spawn_file_actions_init(&streams);
    posix_spawn_file_actions_adddup2(&streams, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&streams, out[1], STDOUT_FILENO);
    std::vector<std::string> texts{"vxscene", "jobs", "--plugin", VX_FAKE_PLUGIN};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    if (posix_spawn(&process, VX_SCENE_PROGRAM, &streams, nullptr, pointers.data(), environ) != 0) {
        std::perror(VX_SCENE_PROGRAM);
        std::abort();
    }
    posix_spawn_file_actions_destroy(&streams);
    close(in[0]);
    close(out[1]);
    close(alive[1]);
    input = in[1];
    output = out[0];
    life = alive[0];
}

_runningJobs::~_runningJobs() {
    for (int* const descriptor : {&input, &output, &life}) closeOnce(*descriptor);
    if (process < 0) return;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
}

void _runningJobs::write(const QByteArray& text) const {
    if (::write(input, text.constData(), static_cast<std::size_t>(text.size())) != text.size()) std::abort();
}

void _runningJobs::closeInput() {
    closeOnce(input);
}

QByteArray _runningJobs::readLine() {
    QByteArray line;
    for (char character = 0; character != '\n' && read(output, &character, 1) == 1;) line += character;
    return line;
}

QByteArray _runningJobs::readRest() {
    QByteArray rest;
    for (auto line = readLine(); !line.isEmpty(); line = readLine()) rest += line;
    return rest;
}

void _runningJobs::closeOutput() {
    closeOnce(output);
}

bool _runningJobs::waitUntilOutputIsFull() const {
    // Parts of pages may stay unused: full is what does not grow any more.
    int before = -1;
    for (int waited = 0; waited < patience; waited += pause) {
        int bytes = 0;
        ioctl(output, FIONREAD, &bytes);
        if (bytes == before && bytes >= fcntl(output, F_GETPIPE_SZ) / 2) return true;
        before = bytes;
        std::this_thread::sleep_for(std::chrono::milliseconds{pause});
    }
    return false;
}

void _runningJobs::send(int signal) const {
    kill(process, signal);
}

int _runningJobs::status() {
    int status = 0;
    waitpid(process, &status, 0);
    process = -1;
    return status;
}

bool _runningJobs::isAllGone() const {
    pollfd end{life, POLLIN, 0};
    return poll(&end, 1, patience) == 1;
}

}  // namespace vxTest
