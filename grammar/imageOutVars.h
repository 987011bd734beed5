// Output names of a scene, rewritten into the job's notation. Used by the driver, LOP and USD readers.
#pragma once

#include <QLatin1String>
#include <QString>

namespace vxP {

/// Writes the first occurrence of a frame variable (any letter case) as a printf-style frame number, with the one digit
/// that may follow it as width: `$F4` -> `%4d`, `$F` -> `%d`.
/// @param variable  the variable without its width: "$F" or "${F"
/// @return false when the name does not hold it
bool convertFrameVariable(QString& name, QLatin1String variable);

/// Takes the file name out of one output parameter line and rewrites its frame and take variables:
/// `$HIP/a.$F4.exr` -> `$HIP/a.%4d.exr`, `$ACTIVETAKE` -> `<Channel>`. Only the first frame variable changes.
/// @param line     whole line: name, TAB, `[ flags ]`, TAB, `( value )`; any length
/// @param prepend  true: put the name in front of what `out` holds (a prefix read apart from its extension)
/// @param[in,out] out  file name in UTF-16 characters; untouched when the result is false
/// @param[in,out] activeTakeUsed  set when the name holds the take variable; never cleared here
/// @param[out] noFrameVariable    set to false first; true when one file holds all frames
/// @return false for an unusable name: empty, a channel reference, or the placeholder testfile.exr
/// Source: Houdini manual, variables $F (frame), $F4 (padded to 4 digits), $FF (frame with fraction).
bool replaceImageOutVars(QString line, const bool& prepend, QString& out, bool& activeTakeUsed, bool& noFrameVariable);

}  // namespace vxP
