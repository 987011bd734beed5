// Jobs of drivers as a take has them.
#pragma once

#include <functional>
#include <optional>

#include "plugin/resolvedDrivers.h"
#include "plugin/sceneScan.h"

namespace vxP {

/// True for a name under which the catalogues know a driver as a take has it.
bool isNameInTake(const QString& driver);

/// Reads the sections of a resolved load's drivers that are others in a take.
class _takeJobs {
 public:
    /// @param complete  gives finished jobs their last fields
    _takeJobs(const _dataPARS_LoadSceneFile& hostsLoad, const _sceneFacts& sceneFacts, const _resolvedDrivers& ofScene,
              std::function<void(vxJ::_JobBasicsArray&)> complete)
        : load(hostsLoad), facts(sceneFacts), drivers(ofScene), completeAll(std::move(complete)) {}

    const _resolvedDrivers& all() const { return drivers; }
    /// The driver that a job is of; null: it was in the array before the load.
    const _resolvedDriver* driverOf(qint32 job) const;
    /// What a take changes of a driver; null: nothing.
    static const _takeSection* sectionIn(const _resolvedDriver& driver, qint32 take);
    /// The driver's jobs in that take, finished. They stay until the next ones are read.
    const vxJ::_JobBasicsArray& read(const _resolvedDriver& driver, const _takeSection& section);

 private:
    _sceneFacts& factsOfReader();

    const _dataPARS_LoadSceneFile& load;
    const _sceneFacts& facts;
    const _resolvedDrivers& drivers;
    std::function<void(vxJ::_JobBasicsArray&)> completeAll;
    std::optional<_sceneFacts> ownFacts;
    vxJ::_JobBasicsArray jobs;
    int sectionsRead = 0;
};

}  // namespace vxP
