#include "host/sceneExplanation.h"

namespace vxH {

QJsonObject explainScene(const QString& absoluteScenePath, const _submitterArguments& submitter) {
    return loadSceneApart(pluginBesideProgram(), absoluteScenePath.toUtf8().constData(), submitter);
}

}  // namespace vxH
