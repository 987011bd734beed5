#include "plugin/takeJobs.h"

#include <algorithm>

#include "resolve/frameGuard.h"
#include "scan/scanBudget.h"

namespace vxP {

const _resolvedDriver* _takeJobs::driverOf(qint32 job) const {
    const auto isBehind = [](qint32 wanted, const _resolvedDriver& driver) { return wanted < driver.firstJob; };
    auto driver = std::upper_bound(drivers.begin(), drivers.end(), job, isBehind);
    while (driver != drivers.begin()) {
        --driver;
        if (driver->jobCount > 0) return job < driver->firstJob + driver->jobCount ? &*driver : nullptr;
    }
    return nullptr;
}

const _takeSection* _takeJobs::sectionIn(const _resolvedDriver& driver, const QString& take) {
    const auto found = std::find_if(driver.takes.begin(), driver.takes.end(),
                                    [&](const _takeSection& section) { return section.take == take; });
    return found == driver.takes.end() ? nullptr : &*found;
}

const vxJ::_JobBasicsArray& _takeJobs::read(const _resolvedDriver& driver, const _takeSection& section) {
    jobs.clear();
    if (!section.writes) return jobs;
    spendWork(sectionCost);
    const _unobserved silence;
    // The catalogues keep the first camera and stage of a driver: in each take it is another driver to them.
    const QString name = QString::number(++sectionsRead) + QLatin1Char(':') + driver.path;
    _sceneFacts taken = facts;
    vxJ::_JobBasicsArray& own = jobs;
    _dataPARS_LoadSceneFile takeLoad = load;
    takeLoad.jobArray = &own;
    QString lines = section.lines;
    QTextStream stream(&lines, QIODevice::ReadOnly);
    QString line;
    sectionKindOf(_sectionReader::driver).readNode(takeLoad, {name, driver.traits}, stream, line, taken);
    jobs.count = std::min(jobs.count, jobs.allocated);  // memory may have been short
    for (qint32 i = 0; i < jobs.count; ++i) removeFrameGuards(*jobs.at(i));
    completeAll(jobs);
    for (qint32 i = 0; i < jobs.count; ++i) jobs.at(i)->layer = driver.path;
    return jobs;
}

}  // namespace vxP
