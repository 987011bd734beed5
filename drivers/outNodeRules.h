// The parameters of an output driver that the reader knows, in the order in which they are tried.
#pragma once

#include <QString>

#include "drivers/outNodeDriver.h"
#include "grammar/paramSection.h"

namespace vxP {

/// Beginnings of the lines that any rule is for.
std::span<const QLatin1String> outNodeParameters();

/// What a parameter is to its driver.
enum class _parameterRole : quint8 {
    other,
    frameSwitch,  ///< whether it renders its frames or the current one
    frameRange,
    sizeSwitch,  ///< whether its own size counts or its camera's
    output,
};

/// @param line  trimmed
_parameterRole roleOf(const QString& line);

/// Applies the first rule that matches a trimmed parameter line.
/// @return `leave` when the section turns out to be none of an output driver, else `next`
_step applyOutNodeRules(_driver& driver, const QString& line);

}  // namespace vxP
