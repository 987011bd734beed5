#include "host/batch/folderScenes.h"

#include <fnmatch.h>
#include <sys/stat.h>

#include <QStringList>
#include <algorithm>
#include <filesystem>

namespace vxH {
namespace {

namespace fs = std::filesystem;

bool isHidden(const std::string& name) {
    return name.front() == '.';
}

}  // namespace

/// What a folder holds, by name.
struct _folderScenes::_names {
    std::vector<std::string> files;
    std::vector<std::string> folders;
    std::vector<std::string> links;  // to folders

    void add(const fs::directory_entry& entry) {
        std::error_code ignored;  // what cannot be examined counts as a file: its load says why
        const bool isFolder = entry.is_directory(ignored);
        auto& kind = !isFolder ? files : entry.is_symlink(ignored) ? links : folders;
        kind.push_back(entry.path().filename().native());
    }

    /// @return why the folder cannot be read, or not to its end
    std::error_code read(const std::string& folder) {
        std::error_code error;
        for (fs::directory_iterator entry{folder, error}; !error && entry != fs::directory_iterator{};
             entry.increment(error)) {
            add(*entry);
        }
        for (auto* const names : {&files, &folders, &links}) std::sort(names->begin(), names->end());
        return error;
    }
};

_nameFilter::_nameFilter(const QString& filter) {
    const auto parts = filter.split(QLatin1Char(';'));
    for (const auto& part : parts) {
        if (!part.trimmed().isEmpty()) wildcards.push_back(part.trimmed().toStdString());
    }
}

bool _nameFilter::accepts(const std::string& name) const {
    return std::any_of(wildcards.begin(), wildcards.end(), [&](const std::string& wildcard) {
        return fnmatch(wildcard.c_str(), name.c_str(), FNM_PERIOD) == 0;
    });
}

_folderScenes::_folderScenes(const std::string& folder, bool inFoldersBelow, const _nameFilter& nameFilter)
    : filter(nameFilter), recursive(inFoldersBelow), waiting{folder} {
    std::error_code ignored;
    for (auto outer = fs::canonical(folder, ignored); outer.has_relative_path();) {
        outer = outer.parent_path();
        isNew(outer);
    }
}

bool _folderScenes::next(std::vector<std::string>& scenes, QString& problem) {
    if (waiting.empty()) waiting.swap(links);
    if (waiting.empty()) return false;
    const auto folder = std::move(waiting.front());
    waiting.pop_front();
    scenes.clear();
    if (!isNew(folder)) return true;
    _names names;
    if (const auto error = names.read(folder); error) {
        problem = QStringLiteral("%1: the folder cannot be read: %2")
                      .arg(QString::fromStdString(folder), QString::fromStdString(error.message()));
    }
    for (const auto& name : names.files) {
        if (filter.accepts(name)) scenes.push_back(fs::path{folder} / name);
    }
    if (recursive) addFoldersBelow(folder, names);
    return true;
}

/// Whether the folder has not been read, under this name or another.
bool _folderScenes::isNew(const std::string& folder) {
    struct stat status {};
    if (stat(folder.c_str(), &status) != 0) return true;  // reading it says why
    return seen.emplace(status.st_dev, status.st_ino).second;
}

void _folderScenes::addFoldersBelow(const std::string& folder, _names& names) {
    const auto pathOf = [&](const std::string& name) { return (fs::path{folder} / name).native(); };
    for (auto name = names.folders.rbegin(); name != names.folders.rend(); ++name) {
        if (!isHidden(*name)) waiting.push_front(pathOf(*name));
    }
    for (const auto& name : names.links) {
        if (!isHidden(name)) links.push_back(pathOf(name));
    }
}

}  // namespace vxH
