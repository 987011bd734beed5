// The program's own plug-in, whose readers are built in as well.
#pragma once

#include <QString>

namespace vxH {

/// The note of the build of the program's own plug-in, as hexadecimal digits; empty where the linker has written none.
extern const char* const ownPluginMark;

/// True for a file that was linked from the same objects as the program's readers: what it finds is what they find.
/// Nothing of the file runs. False is no proof: tools that package programs may give them new marks.
bool isBuiltLikeProgram(const QString& plugin);

}  // namespace vxH
