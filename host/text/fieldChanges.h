// What has changed in a job, in words that the terminal and the report page share.
#pragma once

#include <QString>
#include <vector>

#include "host/results/jobDiff.h"

namespace vxH {

struct _fieldChange {
    QString name;  ///< the field's, or "frames"
    QString before;
    QString now;
};

/// The fields of a job that both scenes have. Those of its frames are one change, "frames", from "1001-1100" to
/// "1001-1200", as far as that shows the difference. Of two lists only the entries that are not in both are shown, and
/// of `waitForPreIDs` the jobs that are meant: "2 /out/mantra1, id 44".
std::vector<_fieldChange> fieldChanges(const _jobDifference& difference, const _sceneResult& before,
                                       const _sceneResult& now);

}  // namespace vxH
