// Scene-side variables of an output name, replaced by their values.
#pragma once

#include <QString>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "scan/scanState.h"

namespace vxP {

/// Replaces the scene's own variables in an output name: scene name and folder, `variables`, the driver's name ($OS)
/// and the job's frame range, in any letter case, with and without braces. Frame variables and the placeholders left
/// for the host stay as they are.
/// @param text       output name; cut at `longestName`, like the result and all that comes in between
/// @param job        its `sceneDatabaseDir`, `layer` and frame range are read
/// @param variables  tried in list order, so that an earlier one wins over a later one whose name begins with its own
/// @param sceneFile  full path of the scene
/// @return the name with all replacements
/// Throws `_budgetExceeded` when replacing takes more work than the scene may ask for.
/// Source: Houdini manual, $HIP (scene folder), $HIPNAME (scene name), $OS (operator name), ":r" (root of a name).
QString replaceHoudiniVariables(QString text, vxJ::_JobBasics_largePath* job, const _variableList& variables,
                                const _vxString<500>& sceneFile);

}  // namespace vxP
