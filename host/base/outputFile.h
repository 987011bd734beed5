// Files that commands write: replaced as a whole, and never in place of what is no file of that kind.
#pragma once

#include <QByteArray>
#include <QString>
#include <string>
#include <vector>

namespace vxH {

/// Whether a path may be written to. Folders, sockets, block devices and the files that are read may not, whatever name
/// or link leads to them.
/// @param inputs  paths of what is read
/// @return why not, in one line; empty where it may, or does not exist yet
QString problemOfOutput(const std::string& path, const std::vector<std::string>& inputs);

/// Writes the bytes to a path. A regular file is replaced at once or stays as it was: the bytes go to a temporary file
/// beside it, which takes its place, owner and permissions. A link stays, its target is written. Devices and pipes
/// are written to.
/// @return why that failed, in one line; empty when all is written
QString writeOutputFile(const std::string& path, const QByteArray& bytes);

}  // namespace vxH
