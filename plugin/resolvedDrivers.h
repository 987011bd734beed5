// What a resolved load knows of the drivers besides their jobs.
#pragma once

#include <QString>
#include <algorithm>
#include <optional>
#include <tuple>
#include <vector>

#include "input/sectionKinds.h"
#include "shared/vxString.h"

namespace vxP {

/// What a copy is made for: a take, a variant of a wedge, or a variant in a take.
struct _copyLayer {
    qint32 wedge = -1;   ///< -1: no variant
    qint32 take = -1;    ///< position in the list of the scene's takes; -1: the scene as it was saved
    qint32 variant = 0;  ///< of the wedge

    bool operator==(const _copyLayer&) const = default;
    bool operator<(const _copyLayer& other) const {
        return std::tie(wedge, take, variant) < std::tie(other.wedge, other.take, other.variant);
    }
};

/// Lines that are like others but for one stretch.
class _changedLines {
 public:
    _changedLines() = default;
    _changedLines(const QString& own, const QString& changed);

    QString appliedTo(const QString& own) const;
    qint64 bytes() const;

 private:
    vxS::_size keptBefore = 0;  ///< characters
    vxS::_size keptBehind = 0;
    QString between;
};

/// A driver in a layer where it is not as the scene was saved.
struct _layerSection {
    _copyLayer layer;
    bool writes = false;
    _changedLines lines;
};

/// What is rendered before a driver in a layer where that is not as the scene was saved.
struct _layerWaits {
    _copyLayer layer;
    std::vector<qint32> before;
};

struct _resolvedDriver {
    QString path;
    const _nodeTraits* traits = nullptr;  ///< null: the type is not known
    qint32 node = -1;                     ///< position in the scene's list
    std::optional<qint32> ownTake{};  ///< in the scene's list of takes, which it asks for; -1: one that is not there
    qint32 firstJob = 0;
    qint32 jobCount = 0;
    std::optional<QString> lines{};         ///< for its reader; none: it writes nothing
    bool hasChoices = false;                ///< what is rendered before it depends on values
    std::vector<qint32> before{};           ///< jobs of the drivers that are rendered before it, by their positions
    std::vector<_layerSection> inLayers{};  ///< in the order of their layers
    std::vector<_layerWaits> waitsInLayers{};
};

/// None in a plain load.
struct _resolvedDrivers {
    std::vector<_resolvedDriver> withJobs;  ///< in the order of their jobs
    std::vector<_resolvedDriver> ofTakes;   ///< they write in takes alone
};

/// What holds in a layer, of what drivers keep for layers: its own, else for a variant in a take that of the take, else
/// that of the variant. Null: what the scene says as it was saved.
template <typename OfLayer>
const OfLayer* inLayer(const std::vector<OfLayer>& list, const _copyLayer& layer) {
    const auto find = [&](const _copyLayer& wanted) {
        const auto isBefore = [](const OfLayer& one, const _copyLayer& other) { return one.layer < other; };
        const auto found = std::lower_bound(list.begin(), list.end(), wanted, isBefore);
        return found == list.end() || found->layer != wanted ? nullptr : &*found;
    };
    const OfLayer* found = find(layer);
    if (layer.take < 0 || layer.wedge < 0) return found;
    if (found == nullptr) found = find({-1, layer.take, 0});
    if (found == nullptr) found = find({layer.wedge, -1, layer.variant});
    return found;
}

}  // namespace vxP
