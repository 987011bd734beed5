#include "host/results/sceneValues.h"

#include <QJsonArray>

#include "host/results/sceneJson.h"

namespace vxH {
namespace {

QJsonObject toJson(const _nodeValue& one) {
    QJsonObject object{{QLatin1String{"node"}, one.node},
                       {QLatin1String{"type"}, one.type},
                       {QLatin1String{"parameter"}, one.parameter},
                       {QLatin1String{"channel"}, one.channel},
                       {QLatin1String{"component"}, one.component},
                       {QLatin1String{"expression"}, one.expression},
                       {QLatin1String{"language"}, one.language},
                       {QLatin1String{"cached"}, one.cached ? QJsonValue{*one.cached} : QJsonValue{}}};
    if (one.keys > 0) object.insert(QLatin1String{"keys"}, one.keys);
    if (one.reason.isEmpty()) {
        object.insert(QLatin1String{"value"}, one.value);
    } else {
        object.insert(QLatin1String{"reason"}, one.reason);
        object.insert(QLatin1String{"code"}, one.code);
    }
    return object;
}

}  // namespace

QJsonObject valuesToJson(const _sceneValues& scene) {
    auto object = headToJson(scene);
    QJsonArray values;
    for (const auto& one : scene.values) values.append(toJson(one));
    object.insert(QLatin1String{"frame"}, scene.frame);
    object.insert(QLatin1String{"complete"}, scene.isWhole);
    object.insert(QLatin1String{"values"}, values);
    return object;
}

std::vector<QJsonObject> valueLines(const _sceneValues& scene) {
    std::vector<QJsonObject> lines;
    for (const auto& one : scene.values) {
        auto object = toJson(one);
        object.insert(QLatin1String{"scene"}, scene.scene);
        lines.push_back(object);
    }
    return lines;
}

}  // namespace vxH
