#include "plugin/layerJobs.h"

#include <algorithm>

#include "resolve/frameGuard.h"
#include "scan/scanBudget.h"

namespace vxP {

namespace {

constexpr QLatin1Char numberEnd{':'};  ///< of the number before a driver's path in its name
constexpr QLatin1String pathBehind{":/"};

}  // namespace

bool isNameInLayer(const QString& driver) {
    return !driver.isEmpty() && driver.at(0).isDigit() && driver.contains(pathBehind);
}

/// A copy, as a reader may note something in them. It needs no takes, which may be many.
_sceneFacts& _layerJobs::factsOfReader() {
    if (!ownFacts) {
        ownFacts = facts;
        ownFacts->takes = {};
    }
    return *ownFacts;
}

const vxJ::_JobBasicsArray& _layerJobs::read(const _resolvedDriver& driver, const _layerSection& section) {
    jobs.clear();
    if (!section.writes) return jobs;
    spendWork(sectionCost);
    const _unobserved silence;
    // The catalogues keep the first camera and stage of a driver: in each layer it is another driver to them.
    const QString name = QString::number(++sectionsRead) + numberEnd + driver.path;
    _dataPARS_LoadSceneFile layerLoad = load;
    layerLoad.jobArray = &jobs;
    QString lines = section.lines.appliedTo(driver.lines.value_or(QString()));
    QTextStream stream(&lines, QIODevice::ReadOnly);
    QString line;
    sectionKindOf(_sectionReader::driver).readNode(layerLoad, {name, driver.traits}, stream, line, factsOfReader());
    jobs.count = std::min(jobs.count, jobs.allocated);  // memory may have been short
    for (qint32 i = 0; i < jobs.count; ++i) removeFrameGuards(*jobs.at(i));
    completeAll(jobs);
    for (qint32 i = 0; i < jobs.count; ++i) jobs.at(i)->layer = driver.path;
    return jobs;
}

}  // namespace vxP
