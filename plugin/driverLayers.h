// Drivers as takes and variants of wedges have them: layers of values over the scene.
#pragma once

#include <functional>
#include <map>
#include <vector>

#include "plugin/resolvedDrivers.h"
#include "resolve/renderOrder.h"
#include "resolve/resolvedSection.h"
#include "scan/sceneFacts.h"

namespace vxP {

/// A scene with what is computed of it.
struct _computedScene {
    vxN::_scene& scene;
    vxV::_evaluator& values;
    _renderOrder& order;
};

/// Shows the scene in a layer for as long as it lives.
class _shownLayer {
 public:
    _shownLayer(const _computedScene& ofScene, vxN::_layer layer);
    _shownLayer(const _shownLayer&) = delete;
    _shownLayer& operator=(const _shownLayer&) = delete;
    ~_shownLayer();

 private:
    void show(vxN::_layer layer);

    const _computedScene& computed;
    vxN::_layer before;
};

/// Finds out what drivers are in layers, and keeps that where it is something else than without.
class _driverLayers {
 public:
    /// The jobs that are rendered before a node, as the scene is shown.
    using _jobsBefore = std::function<std::vector<qint32>(qint32 node)>;

    /// All have to outlive it.
    _driverLayers(const _computedScene& ofScene, _sectionResolver& resolver, _jobsBefore ofNode)
        : computed(ofScene), sections(resolver), before(std::move(ofNode)) {}

    /// Looks for takes that change anything in the scene as it was saved, and notes what is rendered before what there.
    void findTakes(const QStringList& names);
    /// Reads a driver's section in each of these takes. Tells in which of them it writes nothing.
    void readTakes(_resolvedDriver& driver, const QStringList& names);
    /// Notes that an entry of the wedges repeats a driver, both by their places in lists: of wedges, of nodes.
    void addWedge(int entry, qint32 node, qint32 driver);
    /// Reads what is still to be known once all drivers have their jobs: what they wait for in takes, and all of the
    /// variants. Whatever does not look at a wedge's channels is the same in all of its variants, and is read once.
    void finish(_resolvedDrivers& drivers);

 private:
    struct _otherTake {
        qint32 index;  ///< in the scene
        qint32 place;  ///< in the list of the facts
    };
    /// A channel of the scene that a wedge varies.
    struct _variedChannel {
        qint32 node;
        std::string name;
        std::size_t place;  ///< among the wedge's channels
    };
    struct _repeated {
        int entry;  ///< of the wedges
        qint32 node;
        qint32 driver;
    };

    void noteOrderInTakes();
    std::vector<_variedChannel> channelsOf(const _repeated& repeated) const;
    std::optional<QString> linesOf(const _resolvedDriver& driver);
    std::vector<qint32> jobsBefore(const _resolvedDriver& driver) const;
    void keepLines(_resolvedDriver& driver, const _copyLayer& layer);
    void keepWaits(_resolvedDriver& driver, const _copyLayer& layer);
    void readVariants(const _repeated& repeated, _resolvedDriver& driver);
    void readVariantsIn(qint32 take, _copyLayer layer, const _repeated& repeated, _resolvedDriver& driver);
    bool readVariant(const vxN::_layer& shown, const _copyLayer& layer, _resolvedDriver& driver);

    const _computedScene& computed;
    _sectionResolver& sections;
    _jobsBefore before;
    std::vector<_otherTake> otherTakes;
    std::vector<_repeated> wedged;
};

}  // namespace vxP
