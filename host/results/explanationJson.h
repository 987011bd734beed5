// An explained scene as JSON, see docs/schema/explain.schema.json.
#pragma once

#include <QJsonObject>

#include "explain/explanation.h"

namespace vxH {

// Members of an explained scene, beside those of a scene's result.
constexpr QLatin1String factsKey{"facts"};
constexpr QLatin1String sectionsKey{"sections"};
constexpr QLatin1String notRecognisedKey{"notRecognised"};
constexpr QLatin1String warningsKey{"warnings"};
constexpr QLatin1String leftOutKey{"leftOut"};  ///< only where something was

/// The members above; none where the scene could not be read.
QJsonObject explanationToJson(const vxE::_explanation& explanation);

}  // namespace vxH
