#include "plugin/jobCopies.h"

#include <algorithm>
#include <array>

#include "catalogues/wedges.h"
#include "plugin/wedgeNames.h"
#include "scan/scanState.h"

namespace vxP {

namespace {

using vxJ::_JobBasics_largePath;

qint64 wedgeVariant(qint32 wedge, qint32 index) {
    return (qint64{wedge} << 32) + index;
}

}  // namespace

/// @param orPattern  a job without a copy counts itself, else it is left out
std::vector<qint32> _jobCopier::copiesOf(const std::vector<qint32>& patterns, qint64 variant, bool orPattern) const {
    std::vector<qint32> copied;
    for (const qint32 pattern : patterns) {
        const auto found = copies.find({pattern, variant});
        if (found != copies.end() || orPattern) copied.push_back(found == copies.end() ? pattern : found->second);
    }
    return copied;
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

/// The waits of the new job are still those of its source.
/// @return null when the array has no room
_JobBasics_largePath* _jobCopier::append(const vxJ::_JobBasicsArray& from, qint32 index, const _pattern& pattern) {
    _JobBasics_largePath* const job = newJob();
    if (job == nullptr) return nullptr;
    pattern.image.copy(*from.at(index), *job);
    job->preID = static_cast<quint8>(jobs.count);
    channelsEnds.resize(static_cast<std::size_t>(jobs.count), unknownEnd);
    channelsEnds.back() = pattern.channelsEnd;
    return job;
}

_jobCopier::_pattern _jobCopier::patternOf(const _JobBasics_largePath& job) const {
    return {{job, pages}, vxJ::channelsEnd(job, pages)};
}

/// A job of the array as a pattern; it stays the same while it is copied.
const _jobCopier::_pattern& _jobCopier::patternAt(qint32 index) {
    if (index != latestPattern) latest = patternOf(*jobs.at(index));
    latestPattern = index;
    return latest;
}

/// One past the last channel slot in use of a job of the array.
int _jobCopier::channelsEndOf(qint32 index) const {
    const auto place = static_cast<std::size_t>(index);
    const bool isKnown = place < channelsEnds.size() && channelsEnds[place] != unknownEnd;
    return isKnown ? channelsEnds[place] : vxJ::channelsEnd(*jobs.at(index), pages);
}

void _jobCopier::beginRound() {
    copies.clear();
    latestPattern = -1;
}

/// @return null when the array has no room
_JobBasics_largePath* _jobCopier::copy(qint32 pattern, qint64 variant) {
    _JobBasics_largePath* const job = append(jobs, pattern, patternAt(pattern));
    if (job == nullptr) return nullptr;
    const bool isWired = waits.isWired(pattern);
    std::vector<qint32> before = copiesOf(waits.of(pattern), variant, isWired);
    if (isWired) {
        waits.appendWired(std::move(before));
    } else {
        waits.append(before.empty() ? -1 : before.front());
        if (!before.empty()) job->waitForPreIDs[0] = jobs.at(before.front())->preID;
    }
    copies[{pattern, variant}] = jobs.count - 1;
    return job;
}

/// Appends jobs of a driver as a take has them, from one of them to the one behind the last.
qint32 _jobCopier::takeOver(const _resolvedDriver& driver, const vxJ::_JobBasicsArray& made, qint32 from, qint32 behind,
                            _size take, const QString& name) {
    for (qint32 i = from; i < std::min(behind, made.count); ++i) {
        _JobBasics_largePath* const job = append(made, i, patternOf(*made.at(i)));
        if (job == nullptr) return resultNoMoreJobs;
        job->channel = name;
        const auto exported = copies.find({driver.firstJob + i - 1, take});
        if (i == 0) {
            waits.appendWired(copiesOf(driver.before, take, true));
        } else {
            const qint32 before = i < driver.jobCount && exported != copies.end() ? exported->second : jobs.count - 2;
            waits.append(before);
            job->waitForPreIDs[0] = jobs.at(before)->preID;
        }
        if (i < driver.jobCount) copies[{driver.firstJob + i, take}] = jobs.count - 1;
    }
    return resultSuccess;
}

qint32 _jobCopier::copyForTake(qint32 pattern, _size take, const QString& name) {
    const _resolvedDriver* const driver = ofTakes.driverOf(pattern);
    const _takeSection* const section =
        driver == nullptr ? nullptr : _takeJobs::sectionIn(*driver, static_cast<qint32>(take));
    if (section != nullptr) {
        const vxJ::_JobBasicsArray& made = ofTakes.read(*driver, *section);
        const qint32 at = pattern - driver->firstJob;
        const bool isLast = at + 1 == driver->jobCount;
        return takeOver(*driver, made, at, isLast ? made.count : at + 1, take, name);
    }
    _JobBasics_largePath* const job = copy(pattern, take);
    if (job == nullptr) return resultNoMoreJobs;
    job->channel = name;
    return resultSuccess;
}

/// Drivers that write in takes alone have no job to be copied.
qint32 _jobCopier::addDriversOfTakes(const QStringList& takes) {
    for (const _resolvedDriver& driver : ofTakes.all().ofTakes)
        for (const _takeSection& section : driver.takes) {
            const vxJ::_JobBasicsArray& made = ofTakes.read(driver, section);
            const qint32 added = takeOver(driver, made, 0, made.count, section.take, takes.at(section.take));
            if (added != resultSuccess) return added;
        }
    return resultSuccess;
}

qint32 _jobCopier::copyForTakes(const QStringList& takes) {
    beginRound();
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
            const qint32 copied = copyForTake(pattern, take, takes.at(take));
            if (copied != resultSuccess) return copied;
        }
    }
    return addDriversOfTakes(takes);
}

qint32 _jobCopier::copyForWedge(qint32 pattern, qint32 wedge) {
    _wedgeNode& node = wedges[wedge];
    const qint32 variants = node.totalWedges();
    for (qint32 index = 0; index < variants; ++index) {
        _JobBasics_largePath* const job = copy(pattern, wedgeVariant(wedge, index));
        if (job == nullptr) return resultNoMoreJobs;
        nameWedgeVariant(*job, channelsEndOf(jobs.count - 1), QString::number(index), node.getWedgeFileName(index));
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
    beginRound();
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
        if (_JobBasics_largePath* const job = jobs.at(i)) removeWedgePlaceholders(*job, channelsEndOf(i));
    return result;
}

}  // namespace vxP
