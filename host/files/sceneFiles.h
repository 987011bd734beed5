// What the files of a scene's jobs come to.
#pragma once

#include <QStringList>
#include <optional>
#include <vector>

#include "host/files/diskState.h"

namespace vxH {

struct _sceneFiles : _sceneHead {
    int jobs = 0;
    std::vector<_outputFiles> files;
    std::optional<std::vector<_diskState>> states{};  ///< of these; none: nobody looked at the disk

    /// A file is missing, or whether one is cannot be told though its name is known.
    bool isMissing() const;
};

/// What the sets of a scene come to. Sets that two jobs write count once.
struct _filesSum {
    qint64 files = 0;  ///< of known sets
    qint64 present = 0;
    qint64 unknown = 0;  ///< sets
};

_filesSum sumOf(const _sceneFiles& scene);

/// What of a job's files is there.
struct _jobFilesThere {
    qint64 files = 0;  ///< of sets whose state is known
    qint64 present = 0;
    int unknown = 0;  ///< sets of which nothing is known
    QStringList
        missing;  ///< a line for each set and fault: "absent 1041-1100"; the file is named where there are several sets
};

/// An entry for each job. @pre the disk was looked at
std::vector<_jobFilesThere> filesThereByJob(const _sceneFiles& scene);

/// @param question  none: the disk is not looked at
_sceneFiles sceneFilesOf(const _explainedScene& scene, const std::optional<_diskQuestion>& question);

/// See docs/schema/files.schema.json.
QJsonObject filesToJson(const _sceneFiles& scene);

}  // namespace vxH
