// What the result of a scene holds, whichever command makes it.
#pragma once

#include <QJsonObject>
#include <QString>

namespace vxH {

// Members of a scene's result.
constexpr QLatin1String sceneKey{"scene"};      ///< absolute path
constexpr QLatin1String codeKey{"code"};        ///< the plug-in's code, or a `_hostCode`
constexpr QLatin1String messageKey{"message"};  ///< submitter options of the whole submission
constexpr QLatin1String jobsKey{"jobs"};        ///< what the reader made of the jobs
constexpr QLatin1String errorKey{"error"};      ///< what went wrong; only there when the code is not 1

/// A result without message and jobs.
/// @param error  left out where the code is success
QJsonObject sceneResult(const QString& scene, qint32 code, const QString& error);

}  // namespace vxH
