#include "host/access/sceneExplanation.h"

#include "explain/explainedLoad.h"
#include "host/access/sceneLoad.h"
#include "host/base/resultCodes.h"
#include "input/sectionKinds.h"
#include "plugin/sceneLoad.h"

namespace vxH {

_explainedScene explainScene(const QString& scene, const _submitterArguments& arguments) {
    _explainedScene explained;
    const auto loader = [&](auto* load) { return vxE::loadExplained(*load, explained.explanation); };
    static_cast<_sceneResult&>(explained) = loadScene(loader, scene, arguments);
    if (explained.code == hostNoScene) explained.explanation = {};
    if (explained.code == vxP::resultNoUsableOutput) explained.error = whyNoJobs(explained.explanation);
    return explained;
}

bool isOwnPlugin(const _pluginInfo& info) {
    return info.code == vxP::resultSuccess && info.fileFilter == sceneFileFilter() &&
           info.qtVersion == QLatin1String{qVersion()};
}

void tellWhyThereAreNoJobs(_sceneHead& head, const _submitterArguments& arguments) {
    if (head.code != vxP::resultNoUsableOutput) return;
    const _explainedScene explained = explainScene(head.scene, arguments);
    if (explained.code == head.code) head.error = explained.error;
}

std::vector<std::string> readerNames() {
    std::vector<std::string> names;
    for (const auto& kind : vxP::sectionKinds()) names.emplace_back(kind.name.data());
    return names;
}

QString sceneFileFilter() {
    return vxP::sceneFileFilter.toString();
}

}  // namespace vxH
