#include "host/batch/sceneList.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>

#include "host/base/systemReason.h"

namespace vxH {
namespace {

constexpr std::size_t readSize = 65536;
constexpr const char* inputName = "-";

}  // namespace

_sceneList::_sceneList(std::vector<std::string> namedScenes, bool inFoldersBelow, const QString& nameFilter,
                       const _shard& part)
    : names(std::move(namedScenes)),
      recursive(inFoldersBelow),
      fileFilter(nameFilter),
      filter(nameFilter),
      shard(part) {
}

bool _sceneList::readOn() {
    if (folder) return readFolder();
    if (list) return readList();
    if (nextName == names.size()) return false;
    addName(names[nextName++]);
    return true;
}

bool _sceneList::isComplete() const {
    return !folder && !list && nextName == names.size();
}

bool _sceneList::waitsForInput() const {
    return list && !folder && !inputEnded;
}

_sceneEntry _sceneList::take() {
    auto entry = std::move(entries.front());
    entries.pop_front();
    return entry;
}

void _sceneList::addName(const std::string& name) {
    if (name == inputName) {
        list.emplace();
    } else {
        addPath(name);
    }
}

void _sceneList::addPath(const std::string& path) {
    std::error_code ignored;  // the load says why a file cannot be read
    if (std::filesystem::is_directory(path, ignored)) {
        folder.emplace(path, recursive, filter);
        folderName = path;
        folderHadEntries = false;
        return;
    }
    addScene(path);
}

void _sceneList::addScene(std::string path) {
    if (!shard.holds(path)) return;
    entries.push_back({std::move(path), {}});
    ++scenesFound;
}

void _sceneList::addProblem(const QString& problem) {
    entries.push_back({{}, problem});
}

bool _sceneList::readFolder() {
    std::vector<std::string> scenes;
    QString problem;
    if (!folder->next(scenes, problem)) {
        folder.reset();
        if (!folderHadEntries) {
            addProblem(QStringLiteral("%1: no scenes (%2) in this folder%3")
                           .arg(QString::fromStdString(folderName), fileFilter,
                                QLatin1String{recursive ? " and those below it" : ""}));
        }
        return true;
    }
    for (auto& scene : scenes) addScene(std::move(scene));
    if (!problem.isEmpty()) addProblem(problem);
    folderHadEntries = folderHadEntries || !scenes.empty() || !problem.isEmpty();
    return true;
}

bool _sceneList::readList() {
    std::string path;
    QString problem;
    if (list->next(path, problem)) {
        problem.isEmpty() ? addPath(path) : addProblem(problem);
        return true;
    }
    if (inputEnded) list.reset();
    return inputEnded;
}

void _sceneList::readInput() {
    std::array<char, readSize> block;
    const auto count = read(STDIN_FILENO, block.data(), block.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
    if (count > 0) return list->add(block.data(), static_cast<std::size_t>(count));
    if (count < 0) addProblem(QStringLiteral("the list cannot be read: ") + reasonOf(errno));
    list->end();
    inputEnded = true;
}

}  // namespace vxH
