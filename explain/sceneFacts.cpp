#include "explain/sceneFacts.h"

#include <algorithm>
#include <set>

#include "catalogues/camList.h"
#include "catalogues/lopList.h"
#include "catalogues/usdRsList.h"
#include "catalogues/wedges.h"
#include "plugin/layerJobs.h"
#include "scan/scanState.h"

namespace vxE {

namespace {

/// A scene may have a million; people look for the first ones.
constexpr int mostVariables = 1000;

qint64 bytesOfEntry(const QStringList& texts) {
    qint64 bytes = bytesPerEntry;
    for (const QString& text : texts) bytes += static_cast<qint64>(sizeof text) + vxP::bytesOf(text);
    return bytes;
}

/// @param texts  of the entry, which count with it
template <typename Entry>
void add(QList<Entry>& list, const Entry& entry, const QStringList& texts, _share& bytes, qint64& leftOut) {
    if (bytes.take(bytesOfEntry(texts)))
        list.append(entry);
    else
        ++leftOut;
}

QStringList takes(const vxP::_takes& takes, _share& bytes, qint64& leftOut) {
    QStringList list;
    for (const QString& name : takes.names) add(list, name, {name}, bytes, leftOut);
    return list;
}

using _pair = std::pair<QString, QString>;

/// The environment's variables that the load has taken, apart from those that the scene sets itself.
std::set<_pair> importedVariables() {
    std::set<_pair> imported;
    for (const auto& variable : vxS::vxGetEnvironmentVariableList(false))
        if (vxP::isImported(variable)) imported.insert({variable.name, variable.value});
    return imported;
}

QList<_variableFact> firstVariables(_share& bytes) {
    const auto imported = importedVariables();
    QList<_variableFact> list;
    for (vxS::_size i = 0; i < vxP::hVariables.size() && list.size() < mostVariables; ++i) {
        const vxP::_namevalue variable = vxP::hVariables.at(i);
        const bool isImported = imported.count({variable.name, variable.value}) > 0;
        const _variableFact fact{variable.name, variable.value, isImported};
        if (!bytes.take(bytesOfEntry({fact.name, fact.value}))) break;
        list.append(fact);
    }
    return list;
}

/// Without the names that drivers have in layers: no section has one of these.
QStringList ofSections(QStringList drivers) {
    drivers.erase(std::remove_if(drivers.begin(), drivers.end(), vxP::isNameInLayer), drivers.end());
    return drivers;
}

QList<_cameraFact> cameras(_share& bytes, qint64& leftOut) {
    QList<_cameraFact> list;
    for (const vxP::_camNode& camera : vxP::camList.entries()) {
        const _cameraFact fact{camera.camName.toQString(), camera.resX, camera.resY, camera.isStereo,
                               ofSections(camera.renderNodes)};
        add(list, fact, QStringList{fact.node} + fact.drivers, bytes, leftOut);
    }
    return list;
}

QList<_lopFact> lops(_share& bytes, qint64& leftOut) {
    QList<_lopFact> list;
    for (const vxP::_LOPNode& node : vxP::LOPList.entries())
        if (!vxP::isNameInLayer(node.lopName))
            add(list, {node.lopName, node.imageName, node.renderer, ofSections(node.renderNodes)},
                QStringList{node.lopName, node.imageName, node.renderer} + node.renderNodes, bytes, leftOut);
    return list;
}

QList<_usdRenderSettingsFact> usdRenderSettings(_share& bytes, qint64& leftOut) {
    QList<_usdRenderSettingsFact> list;
    for (const vxP::_USD_RendersettingNode& node : vxP::USD_RSList.entries())
        add(list, {node.lopName, node.cameraName, node.imageName, node.archiveEnabled, node.renderNodes},
            QStringList{node.lopName, node.cameraName, node.imageName} + node.renderNodes, bytes, leftOut);
    return list;
}

QList<_wedgeFact> wedges(_share& bytes, qint64& leftOut) {
    QList<_wedgeFact> list;
    for (vxP::_wedgeNode& wedge : vxP::wedges) {
        const auto [first, behind] = wedge.variants();
        _wedgeFact fact{wedge.nodePath, wedge.driver, behind - first, {}};
        QStringList texts{fact.node, fact.driver};
        for (const vxP::_wedgeParams& channel : wedge.params) {
            fact.channels.append({channel.name, channel.start, channel.end, channel.steps});
            texts.append(channel.name);
        }
        add(list, fact, texts, bytes, leftOut);
    }
    return list;
}

}  // namespace

_explainedFacts explainedFacts(const vxP::_sceneFacts& facts, bool hasFrameRange, _share& bytes, _leftOut& leftOut) {
    return {facts.fullVersion,
            vxP::GLseqStart,
            vxP::GLseqEnd,
            vxP::GLseqStep,
            hasFrameRange,
            takes(facts.takes, bytes, leftOut.takes),
            static_cast<qint64>(vxP::hVariables.size()),
            firstVariables(bytes),
            cameras(bytes, leftOut.cameras),
            lops(bytes, leftOut.lops),
            usdRenderSettings(bytes, leftOut.usdRenderSettings),
            wedges(bytes, leftOut.wedges)};
}

}  // namespace vxE
