// A driver reader done the plain way, for Mantra drivers: tries every name in turn, searches for every variable.
#pragma once

#include <QTextStream>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxBench {

/// Reads one driver section and adds its job when it has an image. @return resultSuccess or resultNoMoreJobs
qint32 plainDriver(vxP::_dataPARS_LoadSceneFile& load, QTextStream& stream, QString& line);

}  // namespace vxBench
