// How computed values agree with stored ones, as a table for people.
#pragma once

#include <QString>

#include "host/results/sceneCheck.h"

namespace vxH {

/// The titles of the columns.
QString checkHeading(const _checkCounts& counts);
/// A scene's row, below it the channels that differ.
QString checkRow(const _sceneCheck& check);
/// The row of all scenes, shares in percent, and the reasons for what has no value.
QString checkSum(const _checkCounts& counts);

}  // namespace vxH
