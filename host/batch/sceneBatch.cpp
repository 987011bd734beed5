// One thread, one poll over the pipes of all running children.
#include "host/batch/sceneBatch.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <vector>

#include "host/base/interrupt.h"
#include "host/base/scenePath.h"

namespace vxH {
namespace {

using _clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::size_t readSize = 65536;
constexpr qint64 mostBytesHeld = 64 << 20;
constexpr milliseconds mostWait{60000};
constexpr std::size_t entriesForTotal = 250000;  // found ahead of the work so that the progress knows its total

struct _running {
    _child child;
    std::size_t number;  // of its scene
    _clock::time_point deadline;
    QByteArray output;
    bool isLate = false;   // and has been killed
    bool isPiping = true;  // its pipe is open at the other end
};

/// A place in the order of results.
struct _place {
    _batchResult outcome;
    bool isReady = false;
};

class _batch {
 public:
    _batch(_sceneList& sceneList, const _batchWork& sceneWork, const _batchLimits& batchLimits,
           _progress& batchProgress, const _batchReceiver& receiver)
        : scenes(sceneList), work(sceneWork), limits(batchLimits), progress(batchProgress), receive(receiver) {}
    ~_batch() { killAll(); }
    _batch(const _batch&) = delete;
    _batch& operator=(const _batch&) = delete;

    int run() {
        for (;;) {
            do {
                startAll();
            } while (deliver());
            if (isStopped || isFinished()) break;
            const bool hasMore = readAhead();
            progress.update({finished, scenes.found(), scenes.isComplete()});
            if (progress.wantsReading() && !running.empty())
                progress.show(readingOf(running.front().child.process, places.front().outcome.scene));
            wait(hasMore ? milliseconds{0} : longestWait());
            if (_interrupts::takeChildEnded()) collectEnded();
            killLate();
        }
        killAll();
        return _interrupts::noted();
    }

 private:
    void startAll();
    bool start();
    std::size_t addPlace(const QString& path);
    bool addOutcome(const _batchResult& outcome);
    bool isFinished() const;
    bool hasRoom() const;
    bool wantsEntries() const;
    bool readAhead();
    milliseconds longestWait() const;
    void wait(milliseconds longest);
    bool readPipe(_running& one);
    void collectEnded();
    void finish(_running& one, int status);
    void setOutcome(std::size_t number, const _batchResult& outcome);
    void killLate();
    bool deliver();
    void killAll();

    _sceneList& scenes;
    const _batchWork& work;
    const _batchLimits& limits;
    _progress& progress;
    const _batchReceiver& receive;

    _interrupts interrupts;
    std::vector<_running> running;
    std::deque<_place> places;    // begun and not received yet
    std::size_t firstNumber = 0;  // of the places
    qint64 bytesHeld = 0;         // in results that wait
    qint64 finished = 0;
    bool isStopped = false;
};

/// Starts what may run now.
void _batch::startAll() {
    while (hasRoom() && !scenes.ahead().empty() && start()) continue;
}

bool _batch::isFinished() const {
    return places.empty() && scenes.ahead().empty() && scenes.isComplete();
}

bool _batch::hasRoom() const {
    return running.size() < static_cast<std::size_t>(limits.parallel) &&
           places.size() < static_cast<std::size_t>(limits.window) && bytesHeld < mostBytesHeld;
}

/// Begins the next entry. @return false when no process can be started for it before another ends
bool _batch::start() {
    const auto& entry = scenes.ahead().front();
    if (!entry.problem.isEmpty()) return addOutcome({{}, {hostPathUnusable, entry.problem, {}}, false});
    const auto [path, problem] = absoluteScenePath(entry.path.c_str());
    if (!problem.isEmpty()) return addOutcome({path, {hostPathUnusable, problem, {}}});
    const auto child = startChild([&, &scene = path] { return work(scene); });
    if (child.process < 0 && !running.empty()) return false;
    if (child.process < 0) return addOutcome({path, resultWithoutChild(child)});
    fcntl(child.pipe, F_SETFL, O_NONBLOCK);
    running.push_back({child, addPlace(path), _clock::now() + limits.timeout, {}});
    return true;
}

/// Gives the next entry its place. @return its number
std::size_t _batch::addPlace(const QString& path) {
    scenes.take();
    places.emplace_back().outcome.scene = path;
    return firstNumber + places.size() - 1;
}

/// Begins and ends the next entry at once.
bool _batch::addOutcome(const _batchResult& outcome) {
    setOutcome(addPlace(outcome.scene), outcome);
    return true;
}

bool _batch::wantsEntries() const {
    const auto ahead = scenes.ahead().size();
    return ahead == 0 || (progress.isShown() && ahead < entriesForTotal);
}

/// Looks for further scenes, one step at a time: what is found or ends meanwhile need not wait for the rest.
/// @return whether there may be more at once
bool _batch::readAhead() {
    return wantsEntries() && scenes.readOn();
}

/// Until something is due.
milliseconds _batch::longestWait() const {
    auto longest = progress.dueIn().value_or(mostWait);
    if (limits.timeout == milliseconds{0}) return longest;
    const auto now = _clock::now();
    for (const auto& one : running) {
        if (!one.isLate) longest = std::min(longest, std::chrono::ceil<milliseconds>(one.deadline - now));
    }
    return std::max(longest, milliseconds{0});
}

void _batch::wait(milliseconds longest) {
    std::vector<pollfd> descriptors;
    descriptors.reserve(running.size() + 2);
    for (const auto& one : running) descriptors.push_back({one.isPiping ? one.child.pipe : -1, POLLIN, 0});
    const bool takesInput = scenes.waitsForInput() && wantsEntries();
    descriptors.push_back({takesInput ? STDIN_FILENO : -1, POLLIN, 0});
    descriptors.push_back({STDOUT_FILENO, 0, 0});
    _interrupts::wait(descriptors, static_cast<int>(longest.count()));
    for (std::size_t i = 0; i < running.size(); ++i) {
        if (descriptors[i].revents != 0) readPipe(running[i]);
    }
    if (descriptors[running.size()].revents != 0) scenes.readInput();
    const bool isReaderGone = (descriptors.back().revents & POLLERR) != 0;
    if (isReaderGone) _interrupts::note(SIGPIPE);
}

/// Takes some of what is in the pipe. @return whether there was anything
bool _batch::readPipe(_running& one) {
    std::array<char, readSize> part;
    const auto count = read(one.child.pipe, part.data(), part.size());
    if (count > 0) one.output.append(part.data(), static_cast<decltype(one.output.size())>(count));
    if (count == 0) one.isPiping = false;
    return count > 0;
}

void _batch::collectEnded() {
    for (std::size_t i = running.size(); i-- > 0;) {
        int status = 0;
        if (waitpid(running[i].child.process, &status, WNOHANG) == 0) continue;
        finish(running[i], status);
        running[i] = running.back();
        running.pop_back();
    }
}

void _batch::finish(_running& one, int status) {
    while (readPipe(one)) continue;
    close(one.child.pipe);
    auto result = resultOfChild(one.output, status);
    if (one.isLate && result.code == hostCrashed) result = resultOfLate(limits.timeout);
    setOutcome(one.number, {places[one.number - firstNumber].outcome.scene, result});
}

void _batch::setOutcome(std::size_t number, const _batchResult& outcome) {
    places[number - firstNumber] = {outcome, true};
    bytesHeld += outcome.result.output.size();
    finished += outcome.isScene ? 1 : 0;
}

void _batch::killLate() {
    if (limits.timeout == milliseconds{0}) return;
    const auto now = _clock::now();
    for (auto& one : running) {
        if (one.isLate || now < one.deadline) continue;
        kill(one.child.process, SIGKILL);
        one.isLate = true;
    }
}

/// Hands on what is due. @return whether that made room for more
bool _batch::deliver() {
    bool hasDelivered = false;
    isStopped = isStopped || _interrupts::noted() != 0;
    while (!isStopped && !places.empty() && places.front().isReady) {
        const auto outcome = std::move(places.front().outcome);
        places.pop_front();
        ++firstNumber;
        bytesHeld -= outcome.result.output.size();
        const _openSignals open;
        isStopped = !receive(outcome) || _interrupts::noted() != 0;
        hasDelivered = true;
    }
    return hasDelivered && !isStopped;
}

void _batch::killAll() {
    for (const auto& one : running) kill(one.child.process, SIGKILL);
    for (const auto& one : running) {
        close(one.child.pipe);
        while (waitpid(one.child.process, nullptr, 0) < 0 && errno == EINTR) continue;
    }
    running.clear();
}

}  // namespace

int runBatch(_sceneList& scenes, const _batchWork& work, const _batchLimits& limits, _progress& progress,
             const _batchReceiver& receive) {
    return _batch{scenes, work, limits, progress, receive}.run();
}

}  // namespace vxH
