// Copies of finished jobs: one for each take, and one for each variant of a wedge.
#pragma once

#include <QStringList>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "jobs/VX_DataTypes_plugin.h"
#include "jobs/recordImage.h"
#include "plugin/jobWaits.h"
#include "plugin/layerJobs.h"

namespace vxP {

/// Appends copies to a job array. Its patterns are the jobs that are in the array when a round of copies begins, in
/// order; they stay. A copy takes the next number of the array; where its pattern waits for other jobs, it waits for
/// the copies of these made for the same take or variant; where its driver is wired to one that has no such copy, for
/// the pattern. Where a driver is something else in a take or variant, its jobs there are the copies.
class _jobCopier {
 public:
    /// All have to outlive it.
    _jobCopier(vxJ::_JobBasicsArray& array, _jobWaits& waitsOfJobs, _layerJobs& jobsInLayers);

    /// One copy of each job for every take, with the take as `channel`. A driver with a take of its own gets none.
    /// @param takes  each once
    /// @return resultSuccess, or resultNoMoreJobs; the copies made before stay
    qint32 copyForTakes(const QStringList& takes);

    /// One copy of each job for every variant of every wedge that repeats its driver, with the variant's number and
    /// name in place of the wedge placeholders. Then no job holds a placeholder any more, but for names of variants
    /// that cannot be told. In a resolved load the custom data of a copy says which wedge and variant it is for.
    /// @return resultSuccess, or resultNoMoreJobs; the copies made before stay
    qint32 copyForWedges();

 private:
    /// A pattern, and the take or variant that it was copied for.
    using _copyKey = std::pair<qint32, _copyLayer>;
    /// A job of a resolved load.
    struct _origin {
        const _resolvedDriver* driver = nullptr;  ///< null: a plain load, or it was in the array before the load
        qint32 place = 0;                         ///< among its driver's jobs in its take
        bool isLast = false;                      ///< of these
        qint32 take = -1;                         ///< that it is a copy for
        bool keepsPlaceholders = false;           ///< for the name of a variant that cannot be told
    };
    /// A round's copy of one pattern.
    struct _wanted {
        qint32 pattern;    ///< -1: the driver has no job without the layer
        _copyLayer round;  ///< what the round copies for
        _copyLayer layer;  ///< the same with the take of the pattern
        std::function<void(vxJ::_JobBasics_largePath&)> name;
    };
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

    void reserve(qint64 more);
    vxJ::_JobBasics_largePath* newJob();
    vxJ::_JobBasics_largePath* append(const vxJ::_JobBasicsArray& from, qint32 index, const _pattern& pattern);
    _pattern patternOf(const vxJ::_JobBasics_largePath& job) const;
    const _pattern& patternAt(qint32 index);
    int channelsEndOf(qint32 index) const;
    qint32 copy(const _wanted& wanted);
    qint32 copyPattern(const _wanted& wanted);
    qint32 copyOr(qint32 other, qint32 pattern, const _copyLayer& round) const;
    std::vector<qint32> waitsIn(const _resolvedDriver& driver, const _copyLayer& layer) const;
    qint32 takeOver(const _wanted& wanted, const _resolvedDriver& driver, const _layerSection& section);
    qint32 addDriversOfTakes(const QStringList& takes);
    qint32 copyForWedge(qint32 pattern, qint32 wedge);
    qint32 copyForWedgesOf(qint32 pattern);
    const _driversWedges& wedgesOf(qint32 pattern);
    void listWedges();

    vxJ::_JobBasicsArray& jobs;
    _jobWaits& waits;
    _layerJobs& inLayers;
    qint32 firstClear = vxJ::jobArrayCapacity;  ///< records from here on were made for this round and never used
    vxJ::_writtenPages pages;
    _pattern latest;
    qint32 latestPattern = -1;
    std::vector<int> channelsEnds;  ///< of the copies, by their places in the array
    static constexpr int unknownEnd = -1;
    // Qt's hash and list would end the process where they get no memory.
    std::map<QString, _driversWedges> wedgesOfDriver;
    std::map<_copyKey, qint32> copies;  ///< of all rounds
    std::vector<_origin> origins;       ///< by job
};

}  // namespace vxP
