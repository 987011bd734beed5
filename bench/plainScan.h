// The scan done the plain way: the baseline of the benchmarks.
#pragma once

#include <QString>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxBench {

/// Reads a scene through `QFile` and `QTextStream` alone, tests every line as the plug-in's scan does, and reads driver
/// sections with `plainDriver`.
/// @return number of lines, or -1 when the scene cannot be opened
qint64 plainScan(vxP::_dataPARS_LoadSceneFile& load, const QString& path);

}  // namespace vxBench
