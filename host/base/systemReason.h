// Why the system refuses a file, in its own words.
#pragma once

#include <sys/stat.h>

#include <QString>

namespace vxH {

/// What an errno means: "Permission denied".
QString reasonOf(int error);

/// "a folder", "a pipe", "a device" ...
QString kindOfFile(mode_t mode);

/// Why a path cannot be opened as a scene is: the system's reason, where a broken link leads to, or what there is in
/// place of a regular file. Empty where it can be opened now.
QString whyNotReadable(const QString& path);

}  // namespace vxH
