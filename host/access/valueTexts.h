// Bytes and values of a scene as texts.
#pragma once

#include <QLocale>
#include <QString>

#include "evaluate/value.h"
#include "shared/vxString.h"

namespace vxH {

inline QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<vxS::_size>(text.size()));
}

/// A number with as many digits as it takes to read it again.
inline QString textOf(const vxV::_value& value) {
    if (const auto* const number = std::get_if<double>(&value))
        return QString::number(*number, 'g', QLocale::FloatingPointShortest);
    return qt(std::get<std::string>(value));
}

}  // namespace vxH
