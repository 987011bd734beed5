// What of the files that jobs leave is on the disk.
#pragma once

#include <QLatin1String>
#include <array>
#include <ctime>
#include <optional>
#include <vector>

#include "host/files/outputFiles.h"

namespace vxH {

/// Why a file does not count as there. The first one that holds counts.
enum class _fileFault { absent, empty, tooShort, older };

struct _faultWord {
    _fileFault fault;
    QLatin1String word;  ///< in tables and JSON
    const char* meaning;
};
inline constexpr std::array faultWords{
    _faultWord{_fileFault::absent, QLatin1String{"absent"}, "there is no such file"},
    _faultWord{_fileFault::empty, QLatin1String{"empty"}, "it has no bytes"},
    _faultWord{_fileFault::tooShort, QLatin1String{"short"}, "it has less than a quarter of its neighbours' bytes"},
    _faultWord{_fileFault::older, QLatin1String{"older"}, "it is older than the scene"},
};

/// A file is short when it has less than this part of the median of all that its job has written under that name and
/// that are not empty, and there are enough of these to tell.
constexpr qint64 shortPart = 4;
constexpr qint64 leastForMedian = 4;

/// What of a set of files is there.
struct _diskState {
    QString problem;               ///< why it cannot be told, in one line; empty: it is
    bool isFolderMissing = false;  ///< with all files
    qint64 present = 0;            ///< files without a fault
    qint64 median = 0;             ///< bytes; 0: too few files to tell
    /// Frames by their fault, in the order of `faultWords`; of files that hold all frames, all of these.
    std::array<_frameList, faultWords.size()> faults;

    bool isTold() const { return problem.isEmpty(); }
    bool isMissing() const;
};

struct _diskQuestion {
    bool asksForSizes = true;              ///< otherwise files are only absent or there
    std::optional<timespec> notOlderThan;  ///< when the scene was changed; none: any time will do
};

/// When a file was changed; nothing where it is not there.
std::optional<timespec> changeTime(const QString& path);

/// A state for each entry of the list. Every folder is read once; what that costs goes by the files in the folders, not
/// by the frames of the jobs.
std::vector<_diskState> diskStatesOf(const std::vector<_outputFiles>& files, const _diskQuestion& question);

}  // namespace vxH
