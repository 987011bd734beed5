// A job as a list of named variables, and these variables in square brackets inside paths.
#pragma once

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

/// The variables of a job in record order, each under every name that hosts know it by. Numbers are decimal, truth
/// values "0" and "1", frames as short as they can be written. "SceneFolder" and "SceneFileNameBase" are parts of the
/// scene's path, "AppType" is lower-case, "PNL" is one blank when the record holds none.
template <class Job>
_varValList jobVariables(const Job& job);

/// Puts the value of each known variable in the place of its name in square brackets: "[Layer]". Names compare exactly;
/// an unknown name stays with its brackets, and what was put in is not looked at again.
QString withSquareBracketVariables(const QString& text, const _varValList& variables);

extern template _varValList jobVariables(const _JobBasics&);
extern template _varValList jobVariables(const _JobBasics_largePath&);

}  // namespace vxJ
