// What the readers that come with this program take from a submitter's command line.
#pragma once

#include <QStringList>

#include "host/base/submitterArguments.h"

namespace vxH {

/// Arguments that are neither a switch nor the value of one.
QStringList argumentsNotTaken(const _submitterArguments& arguments);

/// True for arguments that have scenes loaded as Houdini reads them.
bool asksToResolve(const _submitterArguments& arguments);

/// The switches that there are.
QStringList submitterSwitches();

}  // namespace vxH
