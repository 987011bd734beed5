#include "host/results/sceneResult.h"

#include <QJsonArray>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {

QJsonObject sceneResult(const QString& scene, qint32 code, const QString& error) {
    QJsonObject result{{sceneKey, scene}, {codeKey, code}, {messageKey, QString{}}, {jobsKey, QJsonArray{}}};
    if (code != vxP::resultSuccess) result.insert(errorKey, error);
    return result;
}

}  // namespace vxH
