// The variables of jobs as lines for people.
#pragma once

#include <QStringList>

#include "host/results/sceneResult.h"

namespace vxH {

/// "job 2  /out/mantra1", then a line "name = value" for each variable. Characters that could steer a terminal become
/// "?".
QStringList variableLines(const std::vector<_jobVariables>& jobs);

}  // namespace vxH
