// Renderer and application names of the jobs that an output driver becomes.
#pragma once

#include "drivers/outNodeDriver.h"
#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxP {

/// Sets renderer and single-file flag of the job of a driver that renders by itself.
void nameRenderJob(const _driver& driver, vxJ::_JobBasics_largePath& job);

/// Sets renderer and single-file flag of the job that exports a scene description. A USD export that is in truth a
/// Redshift archive marks the driver as Redshift and notes in the array's options that it cannot render locally.
void nameExportJob(_driver& driver, vxJ::_JobBasics_largePath& job, vxJ::_JobBasicsArray& jobs);

/// Sets application and, for USD, renderer of the job that renders an exported scene description.
/// @param job             a copy of the export job, its single-file flag cleared
/// @param oneExportFile   the export job writes one file for all frames
void nameJobOfExport(const _driver& driver, bool oneExportFile, vxJ::_JobBasics_largePath& job);

}  // namespace vxP
