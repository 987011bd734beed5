// The differences of two scenes as lines for people.
#pragma once

#include <QStringList>

#include "host/base/terminal.h"
#include "host/results/jobDiff.h"

namespace vxH {

/// "changed 2 (was 1)  /out/mantra1  Mantra_StdA  Main" and below it "    imageWidth: 1280 -> 1920" for each change
/// (see fieldChanges.h); one line for a job that came or went, with its frames and output; at the end "1 came, 0 went,
/// 1 changed, 12 unchanged". Characters that could steer a terminal become "?".
QStringList diffLines(const _jobDiff& diff, const _sceneResult& before, const _sceneResult& now,
                      const _terminal& terminal);

}  // namespace vxH
