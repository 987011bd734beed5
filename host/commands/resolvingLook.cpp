#include "host/commands/resolvingLook.h"

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

#include <QFileInfo>
#include <QJsonDocument>
#include <algorithm>
#include <cmath>

#include "host/access/submitterSwitches.h"
#include "host/diff/comparison.h"
#include "host/results/sceneJson.h"

namespace vxH {
namespace {

// What a glance may cost.
constexpr qint64 largestScene = qint64{64} * 1024 * 1024;  // bytes
constexpr double mostWork = 1;     // seconds of processor time, so that a busy machine counts less
constexpr double longestLook = 5;  // seconds
constexpr double shareOfTimeout = 0.25;

/// Ends this process, without a word, when the time is over.
/// @param clock  ITIMER_REAL or ITIMER_PROF, whose signals end a process by default
void endAfter(double seconds, decltype(ITIMER_REAL) clock) {
    constexpr double microseconds = 1e6;
    const double whole = std::floor(seconds);
    itimerval timer{};
    timer.it_value.tv_sec = static_cast<time_t>(whole);
    timer.it_value.tv_usec = std::max(static_cast<suseconds_t>((seconds - whole) * microseconds), suseconds_t{1});
    setitimer(clock, &timer, nullptr);
}

void beSilent() {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) return;
    dup2(nowhere, STDERR_FILENO);
    dup2(nowhere, STDOUT_FILENO);
}

}  // namespace

_resolvingLook::_resolvingLook(const _sceneLoader& loader, const QString& scene, const _submitterArguments& arguments,
                               std::chrono::milliseconds timeout) {
    if (QFileInfo(scene).size() > largestScene) return;
    const double given = std::chrono::duration<double>(timeout).count();
    const double seconds = given > 0 ? std::min(longestLook, given * shareOfTimeout) : longestLook;
    child = startChild([&]() -> _childResult {
        beSilent();
        endAfter(mostWork, ITIMER_PROF);
        endAfter(seconds, ITIMER_REAL);
        const auto resolved = loadScene(loader, scene, withResolving(arguments));
        return {resolved.code, {}, QJsonDocument(sceneToJson(resolved)).toJson(QJsonDocument::Compact)};
    });
}

std::optional<_whenResolved> _resolvingLook::compareWith(const _sceneResult& plain) {
    const auto answer = collectChild(child, std::chrono::milliseconds{0});
    const auto resolved = sceneFromJson(QJsonDocument::fromJson(answer.output).object());
    if (answer.output.isEmpty() || !resolved.knowsItsJobs() || !plain.knowsItsJobs()) return {};
    const auto diff = diffJobs(_comparable(plain), _comparable(resolved), _compared::jobs);
    _whenResolved changes;
    for (const auto& difference : diff.differences) ++(difference.hasCome() ? changes.come : changes.differ);
    return changes;
}

_explainedScene explainAndLook(const QString& scene, const _submitterArguments& arguments,
                               const _sceneOptions& options) {
    const bool isOnlyOne =
        options.scenes.size() == 1 && QFileInfo(QString::fromStdString(options.scenes.front())).isFile();
    if (!isOnlyOne || asksToResolve(arguments)) return explainScene(scene, arguments);
    _resolvingLook look(builtInLoader(), scene, arguments, options.timeout);
    auto explained = explainScene(scene, arguments);
    explained.whenResolved = look.compareWith(explained);
    return explained;
}

}  // namespace vxH
