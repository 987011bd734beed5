#include "host/files/sceneFiles.h"

#include <QJsonArray>
#include <QSet>
#include <algorithm>

#include "host/results/sceneJson.h"

namespace vxH {
namespace {

struct _useWord {
    _frameUse use;
    QLatin1String word;
};
constexpr std::array useWords{
    _useWord{_frameUse::oneEach, QLatin1String{"each"}},
    _useWord{_frameUse::allInOne, QLatin1String{"all"}},
    _useWord{_frameUse::overwritten, QLatin1String{"overwritten"}},
};

QString framesText(const _outputFiles& files) {
    return files.frames ? frameListText({*files.frames}) : QString{};
}

/// A line for each fault. @param name  in front of it
QStringList missingLines(const _outputFiles& files, const _diskState& state, const QString& name) {
    if (state.isFolderMissing) return {name + QLatin1String("the folder is not there")};
    QStringList lines;
    for (std::size_t i = 0; i < faultWords.size(); ++i) {
        if (state.faults[i].empty()) continue;
        const bool isOneEach = files.use == _frameUse::oneEach;
        lines.append(name + faultWords[i].word +
                     (isOneEach ? QLatin1Char(' ') + frameListText(state.faults[i]) : QString{}));
    }
    return lines;
}

QJsonObject stateToJson(const _diskState& state) {
    QJsonObject faults;
    for (std::size_t i = 0; i < faultWords.size(); ++i)
        if (!state.faults[i].empty()) faults.insert(faultWords[i].word, frameListText(state.faults[i]));
    QJsonObject object{{QLatin1String{"present"}, state.present}, {QLatin1String{"faults"}, faults}};
    if (state.isFolderMissing) object.insert(QLatin1String{"folderMissing"}, true);
    if (state.median > 0) object.insert(QLatin1String{"medianBytes"}, state.median);
    return object;
}

QJsonObject setToJson(const _outputFiles& files) {
    const auto& use =
        *std::find_if(useWords.begin(), useWords.end(), [&](const auto& row) { return row.use == files.use; });
    QJsonObject object{{QLatin1String{"job"}, files.job},
                       {QLatin1String{"layer"}, files.driver},
                       {QLatin1String{"kind"}, QLatin1String{files.isChannel ? "channel" : "main"}},
                       {QLatin1String{"path"}, files.path()},
                       {QLatin1String{"padding"}, files.padding},
                       {QLatin1String{"use"}, use.word},
                       {QLatin1String{"frames"}, framesText(files)},
                       {QLatin1String{"count"}, files.count()}};
    if (!files.isKnown()) object.insert(QLatin1String{"unknown"}, files.unknown);
    return object;
}

}  // namespace

bool _sceneFiles::isMissing() const {
    if (!states) return false;
    for (std::size_t i = 0; i < files.size(); ++i)
        if (files[i].isKnown() && (!(*states)[i].isTold() || (*states)[i].isMissing())) return true;
    return false;
}

_filesSum sumOf(const _sceneFiles& scene) {
    _filesSum sum;
    QSet<QString> counted;
    for (std::size_t i = 0; i < scene.files.size(); ++i) {
        const auto& files = scene.files[i];
        if (!files.isKnown()) ++sum.unknown;
        const QString key = files.path() + QLatin1Char('\n') + framesText(files);
        if (!files.isKnown() || counted.contains(key)) continue;
        counted.insert(key);
        sum.files += files.count();
        if (scene.states) sum.present += (*scene.states)[i].present;
    }
    return sum;
}

std::vector<_jobFilesThere> filesThereByJob(const _sceneFiles& scene) {
    std::vector<_jobFilesThere> jobs(static_cast<std::size_t>(scene.jobs));
    for (std::size_t i = 0; i < scene.files.size(); ++i) {
        const auto& files = scene.files[i];
        const auto& state = (*scene.states)[i];
        auto& job = jobs[static_cast<std::size_t>(files.job) - 1];
        if (!state.isTold()) {
            ++job.unknown;
            continue;
        }
        job.files += files.count();
        job.present += state.present;
        const auto isOfJob = [&](std::size_t at) {
            return at < scene.files.size() && scene.files[at].job == files.job;
        };
        const bool isAlone = !isOfJob(i + 1) && (i == 0 || !isOfJob(i - 1));
        const QString name = files.path().mid(files.folder.size()) + QLatin1String(": ");
        job.missing += missingLines(files, state, isAlone ? QString{} : name);
    }
    return jobs;
}

_sceneFiles sceneFilesOf(const _explainedScene& scene, const std::optional<_diskQuestion>& question) {
    _sceneFiles result{scene, static_cast<int>(scene.jobs.size()), outputFilesOf(scene)};
    if (question) result.states = diskStatesOf(result.files, *question);
    return result;
}

QJsonObject filesToJson(const _sceneFiles& scene) {
    auto object = headToJson(scene);
    QJsonArray sets;
    for (std::size_t i = 0; i < scene.files.size(); ++i) {
        auto set = setToJson(scene.files[i]);
        if (scene.states && scene.files[i].isKnown()) {
            const auto& state = (*scene.states)[i];
            set.insert(QLatin1String{"disk"},
                       state.isTold() ? stateToJson(state) : QJsonObject{{QLatin1String{"problem"}, state.problem}});
        }
        sets.append(set);
    }
    object.insert(QLatin1String{"files"}, sets);
    return object;
}

}  // namespace vxH
