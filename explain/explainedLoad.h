// A load that tells what became of every section.
#pragma once

#include "explain/explanation.h"
#include "explain/explanationBudget.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxE {

/// Loads the scene as `pLoadSceneFile` does, with the same jobs and the same result, and explains it.
///
/// @param[in,out] load  scene, job array and submitter settings, all owned by the caller
/// @param[out] explanation  what it held before is gone
/// @param budget  what the explanation may use up; jobs and result do not depend on it
/// @return one of `vxP::_result`
qint32 loadExplained(vxP::_dataPARS_LoadSceneFile& load, _explanation& explanation, _explanationBudget budget = {},
                     _surveyBreadth breadth = _surveyBreadth::wholeScene);

}  // namespace vxE
