// Jobs of drivers as takes and variants have them.
#pragma once

#include <functional>
#include <optional>

#include "plugin/resolvedDrivers.h"
#include "plugin/sceneScan.h"

namespace vxP {

/// True for a name under which the catalogues know a driver as a layer has it.
bool isNameInLayer(const QString& driver);

/// Reads the sections of a resolved load's drivers that are others in a layer.
class _layerJobs {
 public:
    /// @param complete  gives finished jobs their last fields
    _layerJobs(const _dataPARS_LoadSceneFile& hostsLoad, const _sceneFacts& sceneFacts, const _resolvedDrivers& ofScene,
               std::function<void(vxJ::_JobBasicsArray&)> complete)
        : load(hostsLoad), facts(sceneFacts), drivers(ofScene), completeAll(std::move(complete)) {}

    const _resolvedDrivers& all() const { return drivers; }
    /// The driver's jobs in that layer, finished. They stay until the next ones are read.
    const vxJ::_JobBasicsArray& read(const _resolvedDriver& driver, const _layerSection& section);

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
