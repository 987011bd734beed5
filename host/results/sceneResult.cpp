#include "host/results/sceneResult.h"

#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {

bool _sceneHead::isLoaded() const {
    return code == vxP::resultSuccess;
}

bool _sceneHead::knowsItsJobs() const {
    return isLoaded() || code == vxP::resultNoUsableOutput;
}

_sceneHead failedHead(const QString& scene, qint32 code, const QString& error) {
    return {scene, code, error, {}};
}

}  // namespace vxH
