// Values of a scene as texts.
#pragma once

#include <QLocale>
#include <QString>

#include "evaluate/value.h"
#include "shared/vxLatin.h"

namespace vxH {

/// A number with as many digits as it takes to read it again.
inline QString textOf(const vxV::_value& value) {
    if (const auto* const number = std::get_if<double>(&value))
        return QString::number(*number, 'g', QLocale::FloatingPointShortest);
    return vxS::textOfUtf8(std::get<std::string>(value));
}

}  // namespace vxH
