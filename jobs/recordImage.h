// What of a record is not zero: a few thousand of its 226,968 bytes.
#pragma once

#include <vector>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "jobs/sparseMemory.h"

namespace vxJ {

/// The pieces of a record that are not zero, for copies that touch no more pages than they need.
class _recordImage {
 public:
    _recordImage() = default;
    _recordImage(const _JobBasics_largePath& record, const _writtenPages& pages);

    /// Makes a record that was just cleared equal to `record`, to the byte.
    /// @param record  the one of this image, unchanged since; it may have moved
    void copy(const _JobBasics_largePath& record, _JobBasics_largePath& cleared) const;

 private:
    std::vector<_stretch> pieces;
};

/// One past the last channel slot in use. It looks at no page that was never written.
int channelsEnd(const _JobBasics_largePath& record, const _writtenPages& pages);

}  // namespace vxJ
