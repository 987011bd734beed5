// A load that tells what became of every section.
#pragma once

#include <QJsonObject>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxE {

/// Loads the scene as `pLoadSceneFile` does, with the same jobs and the same result, and explains it.
///
/// @param[in,out] load  scene, job array and submitter settings, all owned by the caller
/// @param[out] explanation  members "facts", "sections", "notRecognised" and "warnings", see
///                          docs/schema/explain.schema.json. Without facts where the scene cannot be read.
/// @return one of `vxP::_result`
qint32 loadExplained(vxP::_dataPARS_LoadSceneFile& load, QJsonObject& explanation);

}  // namespace vxE
