// How far a child process has read its scene, seen from outside.
#pragma once

#include <sys/types.h>

#include <QString>

namespace vxH {

struct _sceneReading {
    qint64 read = 0;  ///< bytes of the file so far; a second pass begins anew
    qint64 size = 0;  ///< of the file; 0: the process does not have it open, or the system does not tell
};

/// @param scene  absolute path
_sceneReading readingOf(pid_t process, const QString& scene);

}  // namespace vxH
