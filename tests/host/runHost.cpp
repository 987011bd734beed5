// The streams are files, or for the standard output a pseudo terminal.
#include "tests/host/runHost.h"

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

QByteArray readToEnd(int descriptor) {
    QByteArray bytes;
    std::array<char, 4096> part;
    for (;;) {
        const auto got = read(descriptor, part.data(), part.size());
        if (got <= 0) return bytes;  // a terminal whose other end is closed gives an error
        bytes.append(part.data(), static_cast<decltype(bytes.size())>(got));
    }
}

QByteArray readFile(std::FILE* file) {
    lseek(fileno(file), 0, SEEK_SET);
    const auto bytes = readToEnd(fileno(file));
    std::fclose(file);
    return bytes;
}

[[noreturn]] void become(std::vector<std::string>& arguments, const _runOptions& options, int out, int error) {
    dup2(out, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    for (auto variable : options.environment) putenv(strdup(variable.c_str()));
    std::vector<char*> pointers;
    for (auto& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    execv(options.program.c_str(), pointers.data());
    _exit(127);
}

}  // namespace

_hostRun runHost(std::vector<std::string> arguments, const _runOptions& options) {
    arguments.insert(arguments.begin(), options.program);
    std::FILE* const outFile = std::tmpfile();
    std::FILE* const errorFile = std::tmpfile();
    int terminal = -1;
    int out = fileno(outFile);
    if (options.terminalWidth > 0) {
        winsize size{};
        size.ws_col = static_cast<unsigned short>(options.terminalWidth);
        size.ws_row = 40;
        if (openpty(&terminal, &out, nullptr, nullptr, &size) != 0) return {};
    }
    const pid_t process = fork();
    if (process == 0) become(arguments, options, out, fileno(errorFile));
    _hostRun run;
    if (terminal >= 0) {
        close(out);
        run.out = readToEnd(terminal);
        run.out.replace("\r\n", "\n");
        close(terminal);
    }
    int status = 0;
    waitpid(process, &status, 0);
    if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
    const auto fileText = readFile(outFile);
    if (terminal < 0) run.out = fileText;
    run.error = readFile(errorFile);
    return run;
}

_hostRun runJobs(std::vector<std::string> arguments, const _runOptions& options) {
    arguments.insert(arguments.begin(), {"jobs", "--plugin", VX_FAKE_PLUGIN});
    return runHost(std::move(arguments), options);
}
