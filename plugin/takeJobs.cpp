#include "plugin/takeJobs.h"

#include <algorithm>

#include "resolve/frameGuard.h"
#include "scan/scanBudget.h"

namespace vxP {

namespace {

constexpr QLatin1Char numberEnd{':'};  ///< of the number before a driver's path in its name
constexpr QLatin1String pathBehind{":/"};

}  // namespace

bool isNameInTake(const QString& driver) {
    return !driver.isEmpty() && driver.at(0).isDigit() && driver.contains(pathBehind);
}

const _resolvedDriver* _takeJobs::driverOf(qint32 job) const {
    const auto isBehind = [](qint32 wanted, const _resolvedDriver& driver) { return wanted < driver.firstJob; };
    const auto behind = std::upper_bound(drivers.withJobs.begin(), drivers.withJobs.end(), job, isBehind);
    if (behind == drivers.withJobs.begin()) return nullptr;
    const _resolvedDriver& driver = *(behind - 1);
    return job < driver.firstJob + driver.jobCount ? &driver : nullptr;
}

const _takeSection* _takeJobs::sectionIn(const _resolvedDriver& driver, qint32 take) {
    const auto isBefore = [](const _takeSection& section, qint32 wanted) { return section.take < wanted; };
    const auto found = std::lower_bound(driver.takes.begin(), driver.takes.end(), take, isBefore);
    return found == driver.takes.end() || found->take != take ? nullptr : &*found;
}

/// A copy, as a reader may note something in them. It needs no takes, which may be many.
_sceneFacts& _takeJobs::factsOfReader() {
    if (!ownFacts) {
        ownFacts = facts;
        ownFacts->takes = {};
    }
    return *ownFacts;
}

const vxJ::_JobBasicsArray& _takeJobs::read(const _resolvedDriver& driver, const _takeSection& section) {
    jobs.clear();
    if (!section.writes) return jobs;
    spendWork(sectionCost);
    const _unobserved silence;
    // The catalogues keep the first camera and stage of a driver: in each take it is another driver to them.
    const QString name = QString::number(++sectionsRead) + numberEnd + driver.path;
    _dataPARS_LoadSceneFile takeLoad = load;
    takeLoad.jobArray = &jobs;
    QString lines = section.lines;
    QTextStream stream(&lines, QIODevice::ReadOnly);
    QString line;
    sectionKindOf(_sectionReader::driver).readNode(takeLoad, {name, driver.traits}, stream, line, factsOfReader());
    jobs.count = std::min(jobs.count, jobs.allocated);  // memory may have been short
    for (qint32 i = 0; i < jobs.count; ++i) removeFrameGuards(*jobs.at(i));
    completeAll(jobs);
    for (qint32 i = 0; i < jobs.count; ++i) jobs.at(i)->layer = driver.path;
    return jobs;
}

}  // namespace vxP
