// Results of scenes as JSON: what is printed (docs/schema), and what a child process sends to its parent.
#pragma once

#include <QJsonObject>

#include "host/results/sceneResult.h"

namespace vxH {

/// Members `scene`, `code`, `error` where the code is not 1, and `complete` where that is known.
QJsonObject headToJson(const _sceneHead& head);

/// What `headToJson` tells, and the message.
_sceneHead headFromJson(const QJsonObject& object);

/// The same with `message` and `jobs`, see jobFields.h.
QJsonObject sceneToJson(const _sceneResult& result);
/// The same without `jobs`.
QJsonObject jobsApartToJson(const _sceneResult& result);
_sceneResult sceneFromJson(const QJsonObject& object);

/// The head with `jobs`: {job, layer, variables: [{name, value}]}.
QJsonObject variablesToJson(const _sceneVariables& result);
_sceneVariables variablesFromJson(const QJsonObject& object);

/// An object as it is printed, with the version of the format and without a line end. Characters that could steer a
/// terminal or reorder a line are written as `\u`.
QString jsonText(QJsonObject object, bool indented);
/// The same with the jobs as a further member, `jobs`, as they are printed (`writeJson` in jobFields.h).
QString jsonText(QJsonObject object, const std::vector<_job>& jobs, bool indented);

}  // namespace vxH
