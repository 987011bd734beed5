#include "host/access/sceneExplanation.h"

#include "explain/explainedLoad.h"
#include "host/access/sceneLoad.h"
#include "plugin/sceneLoad.h"

namespace vxH {

_explainedScene explainScene(const QString& scene, const _submitterArguments& arguments) {
    _explainedScene explained;
    const auto loader = [&](auto* load) { return vxE::loadExplained(*load, explained.explanation); };
    static_cast<_sceneResult&>(explained) = loadScene(loader, scene, arguments);
    return explained;
}

QString sceneFileFilter() {
    return vxP::sceneFileFilter.toString();
}

}  // namespace vxH
