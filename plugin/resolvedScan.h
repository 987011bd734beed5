// The scan of a resolved load: the scene as a tree of nodes, whose types tell which of them render.
#pragma once

#include "input/sceneFile.h"
#include "jobs/VX_DataTypes_plugin.h"
#include "plugin/resolvedDrivers.h"
#include "scan/sceneFacts.h"

namespace vxP {

/// Keeps the scene's facts and hands the section of every node that matters to its reader, in the scene's order, with
/// all values computed; a driver comes behind those that are wired to it. The readers and their rules are those of a
/// plain load.
/// @param source  open for reading
/// @param[out] drivers  those that have jobs, in a take at least
/// @return resultSuccess, or what a reader returned that was not resultSuccess, and the rest of the scene is not read
qint32 scanResolved(_dataPARS_LoadSceneFile& load, const _sceneFile& source, _sceneFacts& facts,
                    _resolvedDrivers& drivers);

}  // namespace vxP
