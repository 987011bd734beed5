// vxscene as tests run it: with the tests' plug-in, to its end or under their hands.
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <string>
#include <vector>

namespace vxTest {

struct _hostRun {
    int status;  // -1 when a signal ended it
    QByteArray out;
    QByteArray error;
};

/// Runs a program to its end.
/// @param environment  variables "NAME=value" beside those of this process
/// @param input        what it reads
_hostRun run(const std::string& program, const std::vector<std::string>& arguments,
             const std::vector<const char*>& environment = {}, const QByteArray& input = {});

/// A command of vxscene with the tests' plug-in.
_hostRun runCommand(const char* command, std::vector<std::string> arguments,
                    const std::vector<const char*>& environment = {}, const QByteArray& input = {});

/// `vxscene jobs` while it runs, with pipes at all its streams.
class _runningJobs {
 public:
    explicit _runningJobs(const std::vector<std::string>& arguments);
    ~_runningJobs();
    _runningJobs(const _runningJobs&) = delete;
    _runningJobs& operator=(const _runningJobs&) = delete;

    void write(const QByteArray& input) const;
    void closeInput();
    /// The next line of the output, waited for.
    QByteArray readLine();
    /// What is left of the output, up to its end.
    QByteArray readRest();
    void closeOutput();
    /// Waits until the program can write no more because nobody reads. @return false when it does not get there
    bool waitUntilOutputIsFull() const;
    void send(int signal) const;
    /// Waits for the end. @return as from `waitpid`
    int status();
    /// Waits until none of its processes is left. @return false when one is after half a minute
    bool isAllGone() const;

 private:
    pid_t process = -1;
    int input = -1;
    int output = -1;
    int life = -1;  // ends when the last process ends that has inherited its other end
};

}  // namespace vxTest
