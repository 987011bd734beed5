#include "host/results/pluginInfo.h"

#include "host/results/jsonValues.h"

namespace vxH {

QJsonObject infoToJson(const _pluginInfo& info) {
    QJsonObject object;
    for (const auto& field : infoFields)
        std::visit([&](auto member) { object.insert(field.name, jsonOf(info.*member)); }, field.member);
    return object;
}

_pluginInfo infoFromJson(const QJsonObject& object) {
    _pluginInfo info;
    for (const auto& field : infoFields)
        std::visit([&](auto member) { readJson(object[field.name], info.*member); }, field.member);
    return info;
}

}  // namespace vxH
