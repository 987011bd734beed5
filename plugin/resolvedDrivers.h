// What a resolved load knows of the drivers besides their jobs.
#pragma once

#include <QString>
#include <vector>

#include "input/sectionKinds.h"

namespace vxP {

/// A driver as a take has it, where that is not as the scene was saved.
struct _takeSection {
    QString take;
    bool writes = false;
    QString lines;  ///< for its reader
};

struct _resolvedDriver {
    QString path;
    const _nodeTraits* traits = nullptr;  ///< null: the type is not known
    qint32 firstJob = 0;
    qint32 jobCount = 0;         ///< 0: it has jobs in takes alone
    std::vector<qint32> before;  ///< jobs of the drivers that are rendered before it, by their positions
    std::vector<_takeSection> takes;
};

/// In the order of their jobs; none in a plain load.
using _resolvedDrivers = std::vector<_resolvedDriver>;

}  // namespace vxP
