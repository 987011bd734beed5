#include "host/access/sceneExplanation.h"

#include "explain/explainedLoad.h"
#include "plugin/sceneLoad.h"

namespace vxH {

QJsonObject explainScene(const QString& scene, const _submitterArguments& arguments) {
    vxE::_explanation explanation;
    const auto loader = [&](vxP::_dataPARS_LoadSceneFile* load) { return vxE::loadExplained(*load, explanation); };
    QJsonObject result = loadScene(loader, scene, arguments, jobsToJson);
    const QJsonObject members = explanationToJson(explanation);
    for (auto member = members.begin(); member != members.end(); ++member) result.insert(member.key(), member.value());
    return result;
}

bool isSkippedDriver(const QJsonValue& section) {
    const auto entry = section.toObject();
    const auto reader = entry[QLatin1String{"reader"}].toString();
    if (entry[QLatin1String{"outcome"}] != QLatin1String{"none"}) return false;
    if (reader != QLatin1String{"driver"}) return reader == QLatin1String{"wedge"};
    return entry[QLatin1String{"hasFrames"}].toBool() || !entry[QLatin1String{"details"}].toArray().isEmpty();
}

QString sceneFileFilter() {
    return vxP::sceneFileFilter.toString();
}

}  // namespace vxH
