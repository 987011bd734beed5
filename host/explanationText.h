// An explained scene for people to read.
#pragma once

#include <QJsonObject>
#include <QStringList>

#include "host/terminal.h"

namespace vxH {

/// The scene's facts, what became of each section, what was not recognised, and warnings. Characters that could steer a
/// terminal become "?".
QStringList explanationLines(const QJsonObject& result, const _terminal& terminal);

}  // namespace vxH
