#include "host/results/sceneResult.h"

#include <QStringList>

#include "explain/explanation.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {

bool _sceneHead::isLoaded() const {
    return code == vxP::resultSuccess;
}

bool _sceneHead::knowsItsJobs() const {
    return isLoaded() || code == vxP::resultNoUsableOutput;
}

QString _sceneHead::problem() const {
    QStringList lines;
    if (!error.isEmpty()) lines.append(error);
    if (isCut()) lines.append(vxE::sceneCutText.toString());
    return lines.join(QLatin1String("; "));
}

_sceneHead failedHead(const QString& scene, qint32 code, const QString& error) {
    _sceneHead head;
    head.scene = scene;
    head.code = code;
    head.error = error;
    return head;
}

}  // namespace vxH
