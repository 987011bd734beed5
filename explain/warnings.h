// What is likely to go wrong with a scene's jobs, told before they are sent to a farm.
#pragma once

#include <QList>
#include <map>
#include <tuple>

#include "explain/explanation.h"
#include "explain/sceneSurvey.h"
#include "plugin/sceneScan.h"

namespace vxE {

/// All that is known of a scene once it has been loaded.
struct _loadedScene {
    const _sceneObservation& observation;
    const _sceneSurvey& survey;
    const vxJ::_JobBasicsArray& jobs;
    const vxP::_sceneFacts& facts;
};

/// Warnings in the order in which they were found. One that holds for several jobs is given once, and names each of
/// them once.
class _warningList {
 public:
    _warningList(_explanationBudget& ofExplanation, _leftOut& counts) : budget(ofExplanation), leftOut(counts) {}

    /// @param code  a word that stays the same between versions
    /// @param node  empty: the warning is not about one node
    /// @param jobs  their numbers, from 1
    /// @return false where no more work may be done for warnings
    bool add(QStringView code, const QString& node, const QList<int>& jobs, const QString& text);

    QList<_warning> warnings;
    _explanationBudget& budget;
    _leftOut& leftOut;

 private:
    using _key = std::tuple<QString, QString, QString>;  ///< code, node, text

    std::map<_key, vxS::_size> places;
};

/// What a job writes, without its folder: "beauty.####.exr".
QString fileOf(const vxJ::_JobBasics_largePath& job);

/// Warnings about what sections say: frames, names, files that are read, wedges.
void warnOfSections(const _loadedScene& scene, _warningList& warnings);
/// Warnings about what jobs write, with copies for takes and wedges.
void warnOfOutputs(const _loadedScene& scene, _warningList& warnings);

}  // namespace vxE
