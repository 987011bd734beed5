// Which jobs of an array wait for which.
#pragma once

#include <vector>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxP {

/// Follows an array while jobs are appended. A job waits for the one job that its record names, or for those that are
/// wired to its driver.
class _jobWaits {
 public:
    /// Takes what the records say.
    explicit _jobWaits(vxJ::_JobBasicsArray& array);

    /// The jobs that a job waits for, by their positions.
    const std::vector<qint32>& of(qint32 job) const { return waits[static_cast<std::size_t>(job)].jobs; }
    bool isWired(qint32 job) const { return waits[static_cast<std::size_t>(job)].isWired; }
    /// A job waits for those that are wired to its driver. Its record names as many of them as it has room for, by
    /// their own numbers: of two jobs with the same number it names the nearest alone. Where that is not all, its
    /// custom data lists all positions, from 1.
    void wire(qint32 job, std::vector<qint32> before);
    /// The newest job of the array waits for one, or for none.
    void append(qint32 before);
    /// The newest job of the array waits for those that are wired to its driver.
    void appendWired(std::vector<qint32> before);

 private:
    struct _entry {
        std::vector<qint32> jobs;
        bool isWired = false;
    };

    vxJ::_JobBasicsArray& jobs;
    std::vector<_entry> waits;
};

}  // namespace vxP
