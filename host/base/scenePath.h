// From a command-line argument to the scene path that the plug-in gets.
#pragma once

#include <QString>

namespace vxH {

struct _scenePath {
    QString path;     ///< absolute; for an unusable one as far as it can be shown
    QString problem;  ///< why it cannot be handed to the plug-in; empty when it can
};

/// The absolute path of a scene. "." and ".." are taken out only where that leads to the same file, so that a link
/// to a folder keeps its meaning. A path that is not valid UTF-8 or is longer than the load record's
/// 500 characters is a problem: cut or altered, it would name another file.
_scenePath absoluteScenePath(const char* argument);

}  // namespace vxH
