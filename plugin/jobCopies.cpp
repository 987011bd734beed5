#include "plugin/jobCopies.h"

#include <algorithm>
#include <array>

#include "catalogues/wedges.h"
#include "plugin/jobRules.h"
#include "plugin/wedgeNames.h"
#include "scan/scanState.h"

namespace vxP {

namespace {

using vxJ::_JobBasics_largePath;

/// Names a copy for a take.
std::function<void(_JobBasics_largePath&)> inTake(const QString& take) {
    return [take](_JobBasics_largePath& job) { job.channel = take; };
}

/// Says which wedge and variant a copy is for, as no field of a record does. A plain load says nothing of it.
void tellVariant(_JobBasics_largePath& job, const _wedgeNode& wedge, qint32 variant) {
    if (wedge.group < 0) return;
    setCustomData(job, vxJ::CUSTOMWedge, wedge.nodePath);
    setCustomData(job, vxJ::CUSTOMVariant, QString::number(variant));
}

/// The same for all entries of a wedge that repeats several drivers.
qint32 groupOf(qint32 wedge) {
    const qint32 group = wedges.at(wedge).group;
    return group < 0 ? wedge : group;
}

}  // namespace

_jobCopier::_jobCopier(vxJ::_JobBasicsArray& array, _jobWaits& waitsOfJobs, _layerJobs& jobsInLayers)
    : jobs(array), waits(waitsOfJobs), inLayers(jobsInLayers), origins(static_cast<std::size_t>(array.count)) {
    for (const _resolvedDriver& driver : inLayers.all().withJobs)
        for (qint32 place = 0; place < driver.jobCount; ++place) {
            const qint32 job = driver.firstJob + place;
            origins[static_cast<std::size_t>(job)] = {&driver, place, place + 1 == driver.jobCount, -1};
        }
}

/// @param other  where the pattern has no such copy
qint32 _jobCopier::copyOr(qint32 other, qint32 pattern, const _copyLayer& round) const {
    const auto found = copies.find({pattern, round});
    return found == copies.end() ? other : found->second;
}

/// What the driver's first job waits for.
std::vector<qint32> _jobCopier::waitsIn(const _resolvedDriver& driver, const _copyLayer& layer) const {
    const _layerWaits* const changed = inLayer(driver.waitsInLayers, layer);
    std::vector<qint32> before = changed == nullptr ? driver.before : changed->before;
    for (qint32& job : before) {
        if (layer.take >= 0) job = copyOr(job, job, {-1, layer.take, 0});
        if (layer.wedge >= 0) job = copyOr(job, job, {layer.wedge, -1, layer.variant});
    }
    return before;
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

qint32 _jobCopier::copyPattern(const _wanted& wanted) {
    _JobBasics_largePath* const job = append(jobs, wanted.pattern, patternAt(wanted.pattern));
    if (job == nullptr) return resultNoMoreJobs;
    wanted.name(*job);
    _origin origin = origins[static_cast<std::size_t>(wanted.pattern)];
    origin.take = wanted.layer.take;
    origins.push_back(origin);
    std::vector<qint32> wired;
    if (origin.driver != nullptr && origin.place == 0) wired = waitsIn(*origin.driver, wanted.layer);
    if (!wired.empty() || waits.isWired(wanted.pattern)) {
        waits.appendWired(std::move(wired));
    } else {
        const auto& before = waits.of(wanted.pattern);
        const qint32 copied = before.empty() ? -1 : copyOr(-1, before.front(), wanted.round);
        waits.append(copied);
        if (copied >= 0) job->waitForPreIDs[0] = jobs.at(copied)->preID;
    }
    copies[{wanted.pattern, wanted.round}] = jobs.count - 1;
    return resultSuccess;
}

/// Appends the driver's jobs in a layer that stand for the pattern: the one in its place, and behind the last pattern
/// all that are left.
qint32 _jobCopier::takeOver(const _wanted& wanted, const _resolvedDriver& driver, const _layerSection& section) {
    const vxJ::_JobBasicsArray& made = inLayers.read(driver, section);
    const bool hasPattern = wanted.pattern >= 0;
    const _origin pattern = hasPattern ? origins[static_cast<std::size_t>(wanted.pattern)] : _origin{&driver, 0, true};
    const qint32 behind = pattern.isLast ? made.count : std::min(pattern.place + 1, made.count);
    for (qint32 place = pattern.place; place < behind; ++place) {
        _JobBasics_largePath* const job = append(made, place, patternOf(*made.at(place)));
        if (job == nullptr) return resultNoMoreJobs;
        wanted.name(*job);
        origins.push_back({&driver, place, place + 1 == made.count, wanted.layer.take});
        const bool isOfPattern = hasPattern && place == pattern.place;
        if (place == 0) {
            waits.appendWired(waitsIn(driver, wanted.layer));
        } else {
            const bool hasExport = isOfPattern && !waits.of(wanted.pattern).empty();
            const qint32 last = jobs.count - 2;
            const qint32 before = hasExport ? copyOr(last, waits.of(wanted.pattern).front(), wanted.round) : last;
            waits.append(before);
            job->waitForPreIDs[0] = jobs.at(before)->preID;
        }
        if (isOfPattern) copies[{wanted.pattern, wanted.round}] = jobs.count - 1;
    }
    return resultSuccess;
}

/// A section of the take alone is the pattern's already.
qint32 _jobCopier::copy(const _wanted& wanted) {
    const _resolvedDriver* const driver = origins[static_cast<std::size_t>(wanted.pattern)].driver;
    const _layerSection* const section = driver == nullptr ? nullptr : inLayer(driver->inLayers, wanted.layer);
    const bool isOfRound = section != nullptr && section->layer.wedge == wanted.round.wedge;
    return isOfRound ? takeOver(wanted, *driver, *section) : copyPattern(wanted);
}

/// Drivers that write in takes alone have no job to be copied.
qint32 _jobCopier::addDriversOfTakes(const QStringList& takes) {
    for (const _resolvedDriver& driver : inLayers.all().ofTakes)
        for (const _layerSection& section : driver.inLayers) {
            if (section.layer.wedge >= 0) continue;
            const qint32 added =
                takeOver({-1, section.layer, section.layer, inTake(takes.at(section.layer.take))}, driver, section);
            if (added != resultSuccess) return added;
        }
    return resultSuccess;
}

qint32 _jobCopier::copyForTakes(const QStringList& takes) {
    latestPattern = -1;
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
            const _copyLayer layer{-1, static_cast<qint32>(take), 0};
            const qint32 copied = copy({pattern, layer, layer, inTake(takes.at(take))});
            if (copied != resultSuccess) return copied;
        }
    }
    return addDriversOfTakes(takes);
}

qint32 _jobCopier::copyForWedge(qint32 pattern, qint32 wedge) {
    _wedgeNode& node = wedges[wedge];
    const auto [first, behind] = node.variants();
    const QString take = jobs.at(pattern)->channel.toQString();
    for (qint32 index = first; index < behind; ++index) {
        const auto nameVariant = [&, variant = index](_JobBasics_largePath& job) {
            job.channel = take;
            nameWedgeVariant(job, channelsEndOf(jobs.count - 1), QString::number(variant),
                             node.isRandom ? std::nullopt : std::optional(node.getWedgeFileName(variant)));
            tellVariant(job, node, variant);
        };
        const _copyLayer round{groupOf(wedge), -1, index};
        const _copyLayer layer{round.wedge, origins[static_cast<std::size_t>(pattern)].take, index};
        const qint32 firstCopy = jobs.count;
        const qint32 copied = copy({pattern, round, layer, nameVariant});
        if (copied != resultSuccess) return copied;
        for (qint32 one = firstCopy; one < jobs.count; ++one)
            origins[static_cast<std::size_t>(one)].keepsPlaceholders = node.isRandom;
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
        const auto [first, behind] = wedges[wedge].variants();
        found->second.variants += std::max(behind - first, 0);
    }
}

qint32 _jobCopier::copyForWedges() {
    latestPattern = -1;
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
        if (_JobBasics_largePath* const job = jobs.at(i);
            job != nullptr && !origins[static_cast<std::size_t>(i)].keepsPlaceholders)
            removeWedgePlaceholders(*job, channelsEndOf(i));
    return result;
}

}  // namespace vxP
