// The differences of two scenes as lines for people.
#pragma once

#include <QStringList>

#include "host/base/terminal.h"
#include "host/diff/jobDiff.h"

namespace vxH {

/// "changed 2 (was 1)  /out/mantra1  Mantra_StdA  Main" and below it "    imageWidth: 1280 -> 1920" for each field; one
/// line for a job that came or went, with its frames and output; at the end "1 came, 0 went, 1 changed, 12 unchanged".
/// The fields of a job's frames are one line, "frames: 1001-1100 -> 1001-1200", as far as that shows the difference.
/// Of two lists only the entries that are not in both are shown. Characters that could steer a terminal become "?".
QStringList diffLines(const _jobDiff& diff, const QJsonObject& oldResult, const QJsonObject& newResult,
                      const _terminal& terminal);

}  // namespace vxH
