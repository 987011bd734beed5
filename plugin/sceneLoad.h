// One load: from the host's records to a result.
#pragma once

#include "jobs/VX_DataTypes_plugin.h"
#include "plugin/sceneScan.h"

namespace vxP {

/// Which files are scenes, as wildcards.
constexpr QStringView sceneFileFilter{u"*.hip;*.hipnc;*.hiplc;"};

/// Reads a scene file and appends its render jobs to the host's job array.
/// @param[in,out] load  scene, job array and submitter settings, all owned by the host
/// @param[out] facts  blank before
/// @return one of `_result`; resultException also where an exception ended the load
qint32 loadScene(_dataPARS_LoadSceneFile& load, _sceneFacts& facts) noexcept;

}  // namespace vxP
