// Signals that ask the program to end, put off until it leaves everything in order.
#pragma once

#include <poll.h>

#include <csignal>
#include <vector>

namespace vxH {

/// While one lives (only one at a time), SIGINT, SIGTERM, SIGHUP and SIGPIPE are noted instead of ending the program;
/// one that comes a second time ends it at once. Signals that the program was started to ignore stay ignored. All but
/// SIGPIPE are held back, and SIGCHLD too, except in `wait` and `_openSignals`; a child process that is started
/// meanwhile holds them back for good.
class _interrupts {
 public:
    _interrupts();
    ~_interrupts();
    _interrupts(const _interrupts&) = delete;
    _interrupts& operator=(const _interrupts&) = delete;

    /// Waits for one of the descriptors or for a signal.
    /// @param milliseconds  at most; below 0: without end
    static void wait(std::vector<pollfd>& descriptors, int milliseconds);

    /// Whether a child process has ended since the last call.
    static bool takeChildEnded();

    /// The signal that asked the program to end; 0: none did.
    static int noted();
    static void note(int signal);

 private:
    struct sigaction former[5];
};

/// While one lives, signals come through: around what may take long, as writing does.
class _openSignals {
 public:
    _openSignals();
    ~_openSignals();
    _openSignals(const _openSignals&) = delete;
    _openSignals& operator=(const _openSignals&) = delete;

 private:
    sigset_t former;
};

/// Ends the program as the signal does by default.
[[noreturn]] void endBySignal(int signal);

}  // namespace vxH
