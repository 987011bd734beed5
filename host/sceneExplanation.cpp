#include "host/sceneExplanation.h"

#include "explain/explainedLoad.h"
#include "plugin/sceneLoad.h"

namespace vxH {

QJsonObject explainScene(const QString& scene, const _submitterArguments& arguments) {
    QJsonObject explanation;
    const auto loader = [&](vxP::_dataPARS_LoadSceneFile* load) { return vxE::loadExplained(*load, explanation); };
    QJsonObject result = loadScene(loader, scene, arguments, jobsToJson);
    for (auto member = explanation.begin(); member != explanation.end(); ++member)
        result.insert(member.key(), member.value());
    return result;
}

QString sceneFileFilter() {
    return vxP::sceneFileFilter.toString();
}

}  // namespace vxH
