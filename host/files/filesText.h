// The files of a scene's jobs for people and for shells.
#pragma once

#include <QString>

#include "host/files/sceneFiles.h"

namespace vxH {

/// A heading, and a line for each set of files: the job, how many files, their path with "#" for frame digits, and the
/// frames. Where the disk was looked at, sets of which all is there are left out, and each fault of a set has a line:
/// the job, the fault, how many files, path and frames; a folder that is not there has one line for all. Characters
/// that could steer a terminal become "?".
QString filesText(const _sceneFiles& scene);

}  // namespace vxH
