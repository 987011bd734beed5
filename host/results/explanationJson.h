#pragma once
#include <QJsonObject>
#include "explain/explanation.h"
namespace vxH { QJsonObject explanationToJson(const vxE::_explanation& explanation); }
