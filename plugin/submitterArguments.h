// The submitter's command line as texts.
#pragma once

#include <QStringList>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxP {

/// The arguments after the program's name, decoded as UTF-8; an argument that is missing reads as empty.
QStringList argumentsOf(const _submitterSettings& settings);

}  // namespace vxP
