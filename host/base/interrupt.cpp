#include "host/base/interrupt.h"

#include <unistd.h>

#include <cstdlib>
#include <iterator>

namespace vxH {
namespace {

volatile std::sig_atomic_t notedSignal = 0;
volatile std::sig_atomic_t childEnded = 0;
sigset_t openMask;  // what is held back while signals come through

void noteSignal(int signal) {
    notedSignal = signal;
}

void noteChild(int) {
    childEnded = 1;
}

struct _handled {
    int signal;
    void (*handler)(int);
    int flags;
    bool isHeldBack;
    bool mayBeIgnored;  // by whoever started the program
};
constexpr int endsNextTime = static_cast<int>(SA_RESETHAND);
constexpr _handled handledSignals[] = {
    {SIGINT, noteSignal, endsNextTime, true, true},
    {SIGTERM, noteSignal, endsNextTime, true, true},
    {SIGHUP, noteSignal, endsNextTime, true, true},
    {SIGPIPE, noteSignal, 0, false, true},
    {SIGCHLD, noteChild, SA_RESTART | SA_NOCLDSTOP, true, false},
};

}  // namespace

_interrupts::_interrupts() {
    static_assert(std::size(handledSignals) == std::extent_v<decltype(former)>);
    notedSignal = 0;
    sigset_t heldBack;
    sigemptyset(&heldBack);
    for (const auto& row : handledSignals) {
        if (row.isHeldBack) sigaddset(&heldBack, row.signal);
    }
    pthread_sigmask(SIG_BLOCK, &heldBack, &openMask);
    sigdelset(&openMask, SIGCHLD);
    auto* formerAction = former;
    for (const auto& row : handledSignals) {
        struct sigaction action {};
        action.sa_handler = row.handler;
        action.sa_flags = row.flags;
        sigaction(row.signal, nullptr, formerAction);
        const bool staysIgnored = row.mayBeIgnored && formerAction->sa_handler == SIG_IGN;
        if (!staysIgnored) sigaction(row.signal, &action, nullptr);
        ++formerAction;
    }
}

_interrupts::~_interrupts() {
    { const _openSignals lastChance; }
    const auto* formerAction = former;
    for (const auto& row : handledSignals) sigaction(row.signal, formerAction++, nullptr);
    pthread_sigmask(SIG_SETMASK, &openMask, nullptr);
}

void _interrupts::wait(std::vector<pollfd>& descriptors, int milliseconds) {
    const timespec limit{milliseconds / 1000, milliseconds % 1000 * 1000000L};
    for (auto& descriptor : descriptors) descriptor.revents = 0;
    ppoll(descriptors.data(), descriptors.size(), milliseconds < 0 ? nullptr : &limit, &openMask);
    const _openSignals lateOnes;  // ppoll lets none in where a descriptor is ready
}

bool _interrupts::takeChildEnded() {
    const bool hasEnded = childEnded != 0;
    childEnded = 0;
    return hasEnded;
}

int _interrupts::noted() {
    return notedSignal;
}

void _interrupts::note(int signal) {
    noteSignal(signal);
}

_openSignals::_openSignals() {
    pthread_sigmask(SIG_SETMASK, &openMask, &former);
}

_openSignals::~_openSignals() {
    pthread_sigmask(SIG_SETMASK, &former, nullptr);
}

void endBySignal(int signal) {
    std::signal(signal, SIG_DFL);
    sigset_t own;
    sigemptyset(&own);
    sigaddset(&own, signal);
    pthread_sigmask(SIG_UNBLOCK, &own, nullptr);
    raise(signal);
    std::abort();  // the signal's default is to end the program
}

}  // namespace vxH
