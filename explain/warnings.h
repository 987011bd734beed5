// What is likely to go wrong with a scene's jobs, told before they are sent to a farm.
#pragma once

#include <QJsonArray>
#include <QList>
#include <map>
#include <set>
#include <tuple>
#include <vector>

#include "explain/sceneObservation.h"
#include "explain/sceneSurvey.h"
#include "plugin/sceneScan.h"

namespace vxE {

/// All that is known of a scene once it has been loaded.
struct _explainedScene {
    const _sceneObservation& observation;
    const _sceneSurvey& survey;
    const vxJ::_JobBasicsArray& jobs;
    const vxP::_sceneFacts& facts;
};

/// Warnings in the order in which they were found; one that holds for several jobs stands once, with each of them once.
class _warnings {
 public:
    /// @param code  a word that stays the same between versions
    /// @param node  empty: the warning is not about one node
    /// @param jobs  their numbers, from 1
    void add(QStringView code, const QString& node, const QList<int>& jobs, const QString& text);

    QJsonArray toJson() const;

 private:
    using _key = std::tuple<QString, QString, QString>;  ///< code, node, text

    std::map<_key, std::size_t> places;
    std::vector<_key> keys;
    std::vector<std::set<int>> jobsOf;
};

/// Warnings about what sections say: frames, names, files that are read, wedges.
void warnOfSections(const _explainedScene& scene, _warnings& warnings);
/// Warnings about what jobs write, with copies for takes and wedges.
void warnOfOutputs(const _explainedScene& scene, _warnings& warnings);

}  // namespace vxE
