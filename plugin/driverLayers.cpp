#include "plugin/driverLayers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "catalogues/wedges.h"
#include "scan/scanBudget.h"
#include "scan/scanObserver.h"
#include "shared/vxLatin.h"

namespace vxP {

namespace {

constexpr std::string_view variedChannel{"chan"};  ///< of a wedge; its number follows

/// So that it reads as the same number.
std::string textOfNumber(double number) {
    std::array<char, 32> digits{};
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr};
}

/// Of a range in one step only its ends are known, where they are the same.
double knownValue(const _wedgeParams& channel, double value) {
    return channel.steps == 1 && channel.start == channel.end ? channel.start : value;
}

}  // namespace

_shownLayer::_shownLayer(const _computedScene& ofScene, vxN::_layer layer)
    : computed(ofScene), before(ofScene.scene.shown()) {
    show(std::move(layer));
}

_shownLayer::~_shownLayer() {
    show(std::move(before));
}

void _shownLayer::show(vxN::_layer layer) {
    const bool isPlain = layer.take < 0 && layer.fixed.empty();
    const vxN::_layer& shown = computed.scene.shown();
    if (isPlain && shown.take < 0 && shown.fixed.empty()) return;
    computed.scene.show(std::move(layer));
    computed.values.forgetValues();
    computed.order.forgetChoices();
}

void _driverLayers::findTakes(const QStringList& names) {
    std::map<QString, qint32> places;
    for (const QString& name : names) places.emplace(name, static_cast<qint32>(places.size()));
    const auto takes = computed.scene.takes().all();
    const qint32 active = computed.scene.activeTake();
    std::vector<bool> isOther(takes.size());
    for (std::size_t i = 0; i < takes.size(); ++i) {
        const auto index = static_cast<qint32>(i);
        const qint32 parent = takes[i].parent;
        const bool isParentOther = parent >= 0 && isOther[static_cast<std::size_t>(parent)];
        isOther[i] = index != active && (isParentOther || !takes[i].overrides.empty());
        const auto place = places.find(vxS::textOfUtf8(takes[i].name));
        if (place == places.end()) continue;
        if (isOther[i]) otherTakes.push_back({index, place->second});
        places.erase(place);  // of two takes of a name the first one counts
    }
    noteOrderInTakes();
}

/// So that a copy for a take finds the copies that it waits for.
void _driverLayers::noteOrderInTakes() {
    const std::vector<qint32> naming = computed.order.namingNodes();
    if (naming.empty()) return;
    for (const _otherTake& take : otherTakes) {
        spendWork(shownLayerCost);
        const _shownLayer shown(computed, {take.index, {}});
        for (const qint32 node : naming) computed.order.noteNamed(node);
    }
}

/// As the scene is shown; none: it writes nothing.
std::optional<QString> _driverLayers::linesOf(const _resolvedDriver& driver) {
    const _unobserved silence;
    const vxN::_node node = computed.scene.node(driver.node);
    const _nodeType* const type = nodeTypeOf(node.type());
    if (sections.idleness(node, type) != _idle::no) return {};
    return sections.linesOf(node, sectionKindOf(_sectionReader::driver), type);
}

/// A layer comes behind those whose sections were kept before.
void _driverLayers::keepLines(_resolvedDriver& driver, const _copyLayer& layer) {
    const _layerSection* const without = inLayer(driver.inLayers, layer);
    const std::optional<QString> lines = linesOf(driver);
    const QString own = driver.lines.value_or(QString());
    const bool wrote = without == nullptr ? driver.lines.has_value() : without->writes;
    const bool isSame =
        lines.has_value() == wrote && (!wrote || *lines == (without == nullptr ? own : without->lines.appliedTo(own)));
    if (isSame) return;
    _layerSection section{layer, lines.has_value(), _changedLines(own, lines.value_or(QString()))};
    keepMemory(section.lines.bytes() + static_cast<qint64>(sizeof section));
    driver.inLayers.push_back(std::move(section));
}

/// As the scene is shown. Of drivers that are wired in a circle one comes first and waits for none of the others.
std::vector<qint32> _driverLayers::jobsBefore(const _resolvedDriver& driver) const {
    std::vector<qint32> jobs = before(driver.node);
    jobs.erase(std::lower_bound(jobs.begin(), jobs.end(), driver.firstJob), jobs.end());
    return jobs;
}

void _driverLayers::keepWaits(_resolvedDriver& driver, const _copyLayer& layer) {
    if (!driver.hasChoices) return;
    const _layerWaits* const without = inLayer(driver.waitsInLayers, layer);
    std::vector<qint32> jobs = jobsBefore(driver);
    if (jobs == (without == nullptr ? driver.before : without->before)) return;
    keepMemory(static_cast<qint64>(sizeof(_layerWaits)) + static_cast<qint64>(jobs.size()) * qint64{sizeof(qint32)});
    driver.waitsInLayers.push_back({layer, std::move(jobs)});
}

void _driverLayers::readTakes(_resolvedDriver& driver, const QStringList& names) {
    for (const _otherTake& take : otherTakes) {
        spendWork(shownLayerCost);
        const std::size_t keptBefore = driver.inLayers.size();
        const _shownLayer shown(computed, {take.index, {}});
        keepLines(driver, {-1, take.place, 0});
        const bool isIdle = driver.inLayers.size() > keptBefore && !driver.inLayers.back().writes;
        if (isIdle) tellOfSection(_remark::offInTake, names.at(take.place));
    }
}

void _driverLayers::addWedge(int entry, qint32 node, qint32 driver) {
    wedged.push_back({entry, node, driver});
}

/// Those that the scene has.
std::vector<_driverLayers::_variedChannel> _driverLayers::channelsOf(const _repeated& repeated) const {
    std::vector<_variedChannel> channels;
    const vxN::_node wedge = computed.scene.node(repeated.node);
    const auto count = static_cast<std::size_t>(wedges.at(repeated.entry).params.size());
    for (std::size_t place = 0; place < count; ++place) {
        spendWork(wedgeChannelCost);
        const auto path = computed.values.text(wedge, std::string(variedChannel) + std::to_string(place + 1));
        if (!path) continue;
        const std::size_t slash = std::min(path->rfind('/'), path->size());
        const vxN::_node node = wedge.find(path->substr(0, slash));
        const std::string name = path->substr(std::min(slash + 1, path->size()));
        if (node && node.component(name) != nullptr) channels.push_back({node.index(), name, place});
    }
    return channels;
}

/// @return whether anything looked at the wedge's channels
bool _driverLayers::readVariant(const vxN::_layer& shown, const _copyLayer& layer, _resolvedDriver& driver) {
    spendWork(shownLayerCost);
    const _shownLayer inScene(computed, shown);
    keepLines(driver, layer);
    keepWaits(driver, layer);
    return computed.scene.isLayerRead();
}

/// @param take   in the scene's list
/// @param layer  of the first variant
void _driverLayers::readVariantsIn(qint32 take, _copyLayer layer, const _repeated& repeated, _resolvedDriver& driver) {
    const _wedgeNode& wedge = wedges.at(repeated.entry);
    const auto [first, behind] = wedges[repeated.entry].variants();
    const std::vector<_variedChannel> channels = channelsOf(repeated);
    if (channels.empty()) return;
    // in the scene as it was saved they may be looked at, and not in the take: then its variants are not those of that
    bool isRead = layer.take >= 0 && inLayer(driver.inLayers, {layer.wedge, -1, first}) != nullptr;
    for (layer.variant = first; layer.variant < behind; ++layer.variant) {
        const std::vector<double> values = wedge.valuesOf(layer.variant);
        vxN::_layer shown{take, {}};
        for (const _variedChannel& channel : channels) {
            const double value = knownValue(wedge.params.at(static_cast<_size>(channel.place)), values[channel.place]);
            if (wedge.isRandom)
                shown.fixed.push_back({channel.node, channel.name, {}, true});
            else if (std::isfinite(value))
                shown.fixed.push_back({channel.node, channel.name, textOfNumber(value)});
        }
        isRead |= readVariant(shown, layer, driver);
        if (!isRead) return;
    }
}

void _driverLayers::readVariants(const _repeated& repeated, _resolvedDriver& driver) {
    const qint32 wedge = wedges.at(repeated.entry).group;
    readVariantsIn(driver.ownTake.value_or(-1), {wedge, -1, 0}, repeated, driver);
    if (driver.ownTake) return;
    for (const _otherTake& take : otherTakes) readVariantsIn(take.index, {wedge, take.place, 0}, repeated, driver);
}

void _driverLayers::finish(_resolvedDrivers& drivers) {
    std::map<qint32, _resolvedDriver*> byNode;
    for (auto* const list : {&drivers.withJobs, &drivers.ofTakes})
        for (_resolvedDriver& driver : *list) byNode[driver.node] = &driver;
    for (const auto& [node, driver] : byNode) {
        if (!driver->hasChoices) continue;
        if (driver->ownTake) {
            const _shownLayer shown(computed, {*driver->ownTake, {}});
            driver->before = jobsBefore(*driver);
            continue;
        }
        for (const _otherTake& take : otherTakes) {
            spendWork(shownLayerCost);
            const _shownLayer shown(computed, {take.index, {}});
            keepWaits(*driver, {-1, take.place, 0});
        }
    }
    for (const _repeated& repeated : wedged) {
        const auto driver = byNode.find(repeated.driver);
        if (driver != byNode.end()) readVariants(repeated, *driver->second);
    }
}

}  // namespace vxP
