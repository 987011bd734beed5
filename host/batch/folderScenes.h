// The scenes in a folder, and in the folders below it.
#pragma once

#include <sys/types.h>

#include <QString>
#include <deque>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vxH {

/// Which names are those of scenes: the wildcards of "*.hip;*.hipnc;". Letter case counts, and as in a shell a "*" at
/// the beginning matches no dot: hidden files are left out.
class _nameFilter {
 public:
    explicit _nameFilter(const QString& filter);
    bool accepts(const std::string& name) const;

 private:
    std::vector<std::string> wildcards;
};

/// Goes through a folder and those below it, one at each step. Each folder is read once, whichever links lead to it;
/// links to folders wait until the folders themselves have been read. Hidden folders are left out, and so are links to
/// a folder that the first one lies in.
class _folderScenes {
 public:
    /// @param recursive  the folders below it too
    _folderScenes(const std::string& folder, bool recursive, const _nameFilter& filter);

    /// The scenes of the next folder, sorted by the bytes of their names; none where it has none or cannot be read.
    /// @param[out] problem  why it cannot be read; else untouched
    /// @return false when there is no further folder
    bool next(std::vector<std::string>& scenes, QString& problem);

 private:
    struct _names;

    bool isNew(const std::string& folder);
    void addFoldersBelow(const std::string& folder, _names& names);

    const _nameFilter& filter;
    bool recursive;
    std::deque<std::string> waiting;  // the next one first
    std::deque<std::string> links;    // to folders: for the end
    std::set<std::pair<dev_t, ino_t>> seen;
};

}  // namespace vxH
