#include "plugin/jobCopies.h"

#include <algorithm>
#include <array>

#include "catalogues/wedges.h"
#include "plugin/wedgeNames.h"
#include "scan/scanState.h"

namespace vxP {

namespace {

using vxJ::_JobBasics_largePath;

/// For each job the nearest one before it whose own number it waits for: the numbers have 8 bits and repeat in a long
/// array.
std::vector<qint32> partnersIn(const vxJ::_JobBasicsArray& jobs) {
    std::vector<qint32> partners;
    std::array<qint32, 256> lastOfNumber;
    lastOfNumber.fill(-1);
    for (qint32 index = 0; index < jobs.count; ++index) {
        const _JobBasics_largePath* const job = jobs.at(index);
        partners.push_back(job != nullptr && job->waitForPreIDCount == 1 ? lastOfNumber[job->waitForPreIDs[0]] : -1);
        if (job != nullptr) lastOfNumber[job->preID] = index;
    }
    return partners;
}

qint64 wedgeVariant(qint32 wedge, qint32 index) {
    return (qint64{wedge} << 32) + index;
}

}  // namespace

_jobCopier::_jobCopier(vxJ::_JobBasicsArray& array) : jobs(array), partners(partnersIn(array)) {
}

qint32 _jobCopier::partnerOfCopy(qint32 pattern, qint64 variant) const {
    const qint32 partner = partners[static_cast<std::size_t>(pattern)];
    const auto copied = copies.find({partner, variant});
    return copied == copies.end() ? -1 : copied->second;
}

/// Makes room for copies in one step, which is quicker for thousands of them; where memory is short for all, each copy
/// is tried by itself.
void _jobCopier::reserve(qint64 more) {
    const qint32 before = jobs.allocated;
    const qint64 records = std::min<qint64>(jobs.count + more, vxJ::jobArrayCapacity);
    if (more > 0 && jobs.setArraySize(static_cast<int>(records))) firstClear = before;
}

/// @return null when the array has no room
_JobBasics_largePath* _jobCopier::newJob() {
    if (jobs.count >= firstClear && jobs.count < jobs.allocated) return jobs.at(jobs.count++);
    _JobBasics_largePath* job = nullptr;
    return jobs.getNewJob(job) ? job : nullptr;
}

/// @return null when the array has no room
_JobBasics_largePath* _jobCopier::copy(qint32 pattern, qint64 variant) {
    _JobBasics_largePath* const job = newJob();
    if (job == nullptr) return nullptr;
    const _JobBasics_largePath& source = *jobs.at(pattern);
    static_cast<vxJ::_JobBasics_noSettings_largePath&>(*job) = source;
    job->sceneSettings = source.sceneSettings;
    job->preID = static_cast<quint8>(jobs.count);
    const qint32 partner = partnerOfCopy(pattern, variant);
    if (partner >= 0) job->waitForPreIDs[0] = jobs.at(partner)->preID;
    partners.push_back(partner);
    copies[{pattern, variant}] = jobs.count - 1;
    return job;
}

qint32 _jobCopier::copyForTakes(const QStringList& takes) {
    copies.clear();
    const qint32 patterns = jobs.count;
    const auto hasOwnTake = [](const _JobBasics_largePath& job) { return !nodeActiveTakes.value(job.layer).isEmpty(); };
    qint64 more = 0;
    for (qint32 pattern = 0; pattern < patterns; ++pattern)
        if (jobs.at(pattern) != nullptr && !hasOwnTake(*jobs.at(pattern))) more += takes.size();
    reserve(more);
    for (qint32 pattern = 0; pattern < patterns; ++pattern) {
        const _JobBasics_largePath* const source = jobs.at(pattern);
        if (source == nullptr) return resultNoMoreJobs;
        if (hasOwnTake(*source)) continue;
        for (_size take = 0; take < takes.size(); ++take) {
            _JobBasics_largePath* const job = copy(pattern, take);
            if (job == nullptr) return resultNoMoreJobs;
            job->channel = takes.at(take);
        }
    }
    return resultSuccess;
}

qint32 _jobCopier::copyForWedge(qint32 pattern, qint32 wedge) {
    _wedgeNode& node = wedges[wedge];
    const qint32 variants = node.totalWedges();
    for (qint32 index = 0; index < variants; ++index) {
        _JobBasics_largePath* const job = copy(pattern, wedgeVariant(wedge, index));
        if (job == nullptr) return resultNoMoreJobs;
        nameWedgeVariant(*job, QString::number(index), node.getWedgeFileName(index));
    }
    return resultSuccess;
}

qint32 _jobCopier::copyForWedgesOf(qint32 pattern) {
    if (jobs.at(pattern) == nullptr) return resultNoMoreJobs;
    for (const qint32 wedge : wedgesOf(pattern).numbers) {
        const qint32 copied = copyForWedge(pattern, wedge);
        if (copied != resultSuccess) return copied;
    }
    return resultSuccess;
}

/// The wedges that repeat a job's driver.
const _jobCopier::_driversWedges& _jobCopier::wedgesOf(qint32 pattern) {
    return wedgesOfDriver[jobs.at(pattern)->layer.toQString()];
}

/// Lists the wedges of those drivers that have a job.
void _jobCopier::listWedges() {
    for (qint32 pattern = 0; pattern < jobs.count; ++pattern)
        if (jobs.at(pattern) != nullptr) wedgesOf(pattern);
    for (qint32 wedge = 0; wedge < static_cast<qint32>(wedges.size()); ++wedge) {
        const auto found = wedgesOfDriver.find(wedges.at(wedge).driver);
        if (found == wedgesOfDriver.end()) continue;
        found->second.numbers.push_back(wedge);
        found->second.variants += std::max(wedges[wedge].totalWedges(), 0);
    }
}

qint32 _jobCopier::copyForWedges() {
    copies.clear();
    listWedges();
    const qint32 patterns = jobs.count;
    qint64 more = 0;
    for (qint32 pattern = 0; pattern < patterns; ++pattern)
        if (jobs.at(pattern) != nullptr) more += wedgesOf(pattern).variants;
    reserve(more);
    qint32 result = resultSuccess;
    for (qint32 pattern = 0; pattern < patterns && result == resultSuccess; ++pattern)
        result = copyForWedgesOf(pattern);
    for (qint32 i = 0; i < jobs.count; ++i)
        if (_JobBasics_largePath* const job = jobs.at(i)) removeWedgePlaceholders(*job);
    return result;
}

}  // namespace vxP
