// Copies of finished jobs: one for each take, and one for each variant of a wedge.
#pragma once

#include <QStringList>
#include <map>
#include <utility>
#include <vector>

#include "jobs/VX_DataTypes_plugin.h"
#include "jobs/recordImage.h"
#include "plugin/jobWaits.h"
#include "plugin/takeJobs.h"

namespace vxP {

/// Appends copies to a job array. Its patterns are the jobs that are in the array when a round of copies begins, in
/// order; they stay. A copy takes the next number of the array; where its pattern waits for other jobs, it waits for
/// the copies of these made for the same take or variant; where its driver is wired to one that has no such copy, for
/// the pattern.
class _jobCopier {
 public:
    /// All have to outlive it.
    _jobCopier(vxJ::_JobBasicsArray& array, _jobWaits& waitsOfJobs, _takeJobs& jobsOfTakes)
        : jobs(array), waits(waitsOfJobs), ofTakes(jobsOfTakes) {}

    /// One copy of each job for every take, with the take as `channel`. A driver with a take of its own gets none.
    /// Where a take changes a driver, its jobs in that take are the copies.
    /// @param takes  each once
    /// @return resultSuccess, or resultNoMoreJobs; the copies made before stay
    qint32 copyForTakes(const QStringList& takes);

    /// One copy of each job for every variant of every wedge that repeats its driver, with the variant's number and
    /// name in place of the wedge placeholders. Then no job holds a placeholder any more.
    /// @return resultSuccess, or resultNoMoreJobs; the copies made before stay
    qint32 copyForWedges();

 private:
    /// A pattern and the take or variant that it was copied for.
    using _copyKey = std::pair<qint32, qint64>;
    /// The wedges that repeat a driver.
    struct _driversWedges {
        std::vector<qint32> numbers;  ///< in list order
        qint64 variants = 0;          ///< of all of them
    };

    /// A job that is copied.
    struct _pattern {
        vxJ::_recordImage image;
        int channelsEnd = 0;  ///< one past its last channel slot in use
    };

    void beginRound();
    void reserve(qint64 more);
    vxJ::_JobBasics_largePath* newJob();
    vxJ::_JobBasics_largePath* append(const vxJ::_JobBasicsArray& from, qint32 index, const _pattern& pattern);
    _pattern patternOf(const vxJ::_JobBasics_largePath& job) const;
    const _pattern& patternAt(qint32 index);
    int channelsEndOf(qint32 index) const;
    vxJ::_JobBasics_largePath* copy(qint32 pattern, qint64 variant);
    std::vector<qint32> copiesOf(const std::vector<qint32>& patterns, qint64 variant, bool orPattern) const;
    qint32 copyForTake(qint32 pattern, _size take, const QString& name);
    qint32 takeOver(const _resolvedDriver& driver, const vxJ::_JobBasicsArray& made, qint32 from, qint32 behind,
                    _size take, const QString& name);
    qint32 addDriversOfTakes(const QStringList& takes);
    qint32 copyForWedge(qint32 pattern, qint32 wedge);
    qint32 copyForWedgesOf(qint32 pattern);
    const _driversWedges& wedgesOf(qint32 pattern);
    void listWedges();

    vxJ::_JobBasicsArray& jobs;
    _jobWaits& waits;
    _takeJobs& ofTakes;
    qint32 firstClear = vxJ::jobArrayCapacity;  ///< records from here on were made for this round and never used
    vxJ::_writtenPages pages;
    _pattern latest;
    qint32 latestPattern = -1;
    std::vector<int> channelsEnds;  ///< of the copies, by their places in the array
    static constexpr int unknownEnd = -1;
    // Qt's hash and list would end the process where they get no memory.
    std::map<QString, _driversWedges> wedgesOfDriver;
    std::map<_copyKey, qint32> copies;  ///< of this round
};

}  // namespace vxP
