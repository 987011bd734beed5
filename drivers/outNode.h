// The reader of output drivers: render, export and cache nodes.
#pragma once

#include <QTextStream>
#include <string_view>

#include "grammar/paramSection.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxP {

constexpr qint32 mostJobsBefore = 250;  ///< with more jobs than that, later drivers are passed over

/// Reads the section of one output driver and adds its jobs to the host's array. A section that is cut off, or whose
/// output name is unusable, adds none. When the array already holds more than `mostJobsBefore` jobs the section is not
/// read at all.
/// @param load    scene file name and job array are used
/// @param stream  about to read what follows the header line
/// @param[in,out] line  in: the section's header; out: the last line read
/// @param[in,out] activeTakeUsed  set when an output name holds the take variable; never cleared here
/// @param majorVersion  of Houdini, for example 19
/// @param versionText   version after the major number, for example "5640"
/// @return resultSuccess, or resultNoMoreJobs when the array has no room
qint32 loadOutNode(_dataPARS_LoadSceneFile* load, QTextStream& stream, QString& line, bool& activeTakeUsed,
                   const int& majorVersion, const QString& versionText);
/// The same for a node that is known.
qint32 readOutNode(_dataPARS_LoadSceneFile* load, const _sectionNode& known, QTextStream& stream, QString& line,
                   bool& activeTakeUsed, const int& majorVersion, const QString& versionText);

/// True when a section that holds none of the reader's parameters adds no job, and the path in its header nothing to
/// the catalogues.
bool isNothingWhenEmpty(const vxJ::_JobBasicsArray& jobs, std::string_view header);
/// Does what reading such a section would.
void passEmptyOutNode();

}  // namespace vxP
