#include "explain/sceneFactsJson.h"

#include <QJsonArray>
#include <set>

#include "catalogues/camList.h"
#include "catalogues/lopList.h"
#include "catalogues/usdRsList.h"
#include "catalogues/wedges.h"
#include "scan/scanState.h"

namespace vxE {

namespace {

/// A scene may have a million; people look for the first ones.
constexpr int mostVariables = 1000;

using _pair = std::pair<QString, QString>;

/// The environment's variables that the load has taken, apart from those that the scene sets itself.
std::set<_pair> importedVariables() {
    std::set<_pair> imported;
    for (const auto& variable : vxS::vxGetEnvironmentVariableList(false))
        if (vxP::isImported(variable)) imported.insert({variable.name, variable.value});
    return imported;
}

QJsonArray variables() {
    const auto imported = importedVariables();
    QJsonArray list;
    for (vxS::_size i = 0; i < vxP::hVariables.size() && list.size() < mostVariables; ++i) {
        const vxP::_namevalue variable = vxP::hVariables.at(i);
        const bool isImported = imported.count({variable.name, variable.value}) > 0;
        list.append(QJsonObject{
            {QStringLiteral("name"), variable.name},
            {QStringLiteral("value"), variable.value},
            {QStringLiteral("from"), isImported ? QStringLiteral("environment") : QStringLiteral("scene")}});
    }
    return list;
}

QJsonArray cameras() {
    QJsonArray list;
    for (const vxP::_camNode& camera : vxP::camList.entries())
        list.append(QJsonObject{{QStringLiteral("node"), camera.camName.toQString()},
                                {QStringLiteral("width"), camera.resX},
                                {QStringLiteral("height"), camera.resY},
                                {QStringLiteral("stereo"), camera.isStereo},
                                {QStringLiteral("drivers"), QJsonArray::fromStringList(camera.renderNodes)}});
    return list;
}

QJsonArray lops() {
    QJsonArray list;
    for (const vxP::_LOPNode& node : vxP::LOPList.entries())
        list.append(QJsonObject{{QStringLiteral("node"), node.lopName},
                                {QStringLiteral("image"), node.imageName},
                                {QStringLiteral("renderer"), node.renderer},
                                {QStringLiteral("drivers"), QJsonArray::fromStringList(node.renderNodes)}});
    return list;
}

QJsonArray usdRenderSettings() {
    QJsonArray list;
    for (const vxP::_USD_RendersettingNode& node : vxP::USD_RSList.entries())
        list.append(QJsonObject{{QStringLiteral("node"), node.lopName},
                                {QStringLiteral("camera"), node.cameraName},
                                {QStringLiteral("image"), node.imageName},
                                {QStringLiteral("archive"), node.archiveEnabled},
                                {QStringLiteral("drivers"), QJsonArray::fromStringList(node.renderNodes)}});
    return list;
}

QJsonArray wedges() {
    QJsonArray list;
    for (vxP::_wedgeNode& wedge : vxP::wedges) {
        QJsonArray channels;
        for (const vxP::_wedgeParams& channel : wedge.params)
            channels.append(QJsonObject{{QStringLiteral("name"), channel.name},
                                        {QStringLiteral("start"), channel.start},
                                        {QStringLiteral("end"), channel.end},
                                        {QStringLiteral("steps"), channel.steps}});
        list.append(QJsonObject{{QStringLiteral("node"), wedge.nodePath},
                                {QStringLiteral("driver"), wedge.driver},
                                {QStringLiteral("variants"), wedge.totalWedges()},
                                {QStringLiteral("channels"), channels}});
    }
    return list;
}

}  // namespace

QJsonObject sceneFactsJson(const vxP::_sceneFacts& facts, bool frameRangeStored) {
    return {{QStringLiteral("houdiniVersion"), facts.fullVersion},
            {QStringLiteral("frameRange"), QJsonObject{{QStringLiteral("start"), vxP::GLseqStart},
                                                       {QStringLiteral("end"), vxP::GLseqEnd},
                                                       {QStringLiteral("step"), vxP::GLseqStep},
                                                       {QStringLiteral("stored"), frameRangeStored}}},
            {QStringLiteral("takes"), QJsonArray::fromStringList(facts.takes.names)},
            {QStringLiteral("variableCount"), static_cast<int>(vxP::hVariables.size())},
            {QStringLiteral("variables"), variables()},
            {QStringLiteral("cameras"), cameras()},
            {QStringLiteral("lops"), lops()},
            {QStringLiteral("usdRenderSettings"), usdRenderSettings()},
            {QStringLiteral("wedges"), wedges()}};
}

}  // namespace vxE
