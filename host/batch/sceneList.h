// The scenes that a command line names: files, folders, and "-" for a list of both on the standard input.
#pragma once

#include <QString>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "host/batch/folderScenes.h"
#include "host/batch/pathList.h"
#include "host/batch/shard.h"

namespace vxH {

/// A scene, or why there is none in its place.
struct _sceneEntry {
    std::string path;  ///< as it was named
    QString problem;   ///< a line for the error stream; empty for a scene
};

/// Finds the scenes in the order in which they are named, no further than it is asked to: folders and the list may be
/// long. It never waits for the list.
class _sceneList {
 public:
    /// @param recursive   look into the folders below a folder too
    /// @param fileFilter  which files of a folder are scenes: "*.hip;*.hipnc;"
    /// @param shard       scenes of other parts are passed over, wherever they are named
    _sceneList(std::vector<std::string> names, bool recursive, const QString& fileFilter, const _shard& shard = {});

    /// Looks at the next name, folder or path of the list.
    /// @return false when there is none, or none before `readInput`
    bool readOn();
    /// Reads what the standard input has. Call it when there is something and `waitsForInput`.
    void readInput();
    bool waitsForInput() const;

    /// Found and not taken yet.
    const std::deque<_sceneEntry>& ahead() const { return entries; }
    _sceneEntry take();

    /// Scenes found so far, taken or not; nothing follows them when `isComplete`.
    qint64 found() const { return scenesFound; }
    bool isComplete() const;

 private:
    void addName(const std::string& name);
    void addPath(const std::string& path);
    void addScene(std::string path);
    void addProblem(const QString& problem);
    bool readFolder();
    bool readList();

    std::vector<std::string> names;
    std::size_t nextName = 0;
    bool recursive;
    QString fileFilter;
    _nameFilter filter;
    _shard shard;
    std::optional<_folderScenes> folder;  // that is being read
    std::string folderName;
    bool folderHadEntries = false;
    std::optional<_pathList> list;  // as long as the standard input may hold more of it
    bool inputEnded = false;
    std::deque<_sceneEntry> entries;
    qint64 scenesFound = 0;
};

}  // namespace vxH
