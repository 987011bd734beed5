// What a resolved load knows of the drivers besides their jobs.
#pragma once

#include <QString>
#include <vector>

#include "input/sectionKinds.h"

namespace vxP {

/// A driver as a take has it, where that is not as the scene was saved.
struct _takeSection {
    qint32 take = 0;  ///< position in the list of the scene's takes
    bool writes = false;
    QString lines;  ///< for its reader
};

struct _resolvedDriver {
    QString path;
    const _nodeTraits* traits = nullptr;  ///< null: the type is not known
    qint32 firstJob = 0;
    qint32 jobCount = 0;
    std::vector<qint32> before;       ///< jobs of the drivers that are rendered before it, by their positions
    std::vector<_takeSection> takes;  ///< in the order of the scene's takes
};

/// None in a plain load.
struct _resolvedDrivers {
    std::vector<_resolvedDriver> withJobs;  ///< in the order of their jobs
    std::vector<_resolvedDriver> ofTakes;   ///< they write in takes alone
};

}  // namespace vxP
