// Texts as std::string, which a failing test prints in full, and back.
#pragma once

#include <QString>
#include <string>

namespace vxTest {

inline std::string plain(QStringView text) {
    return text.toString().toStdString();
}

/// Of a fixed-capacity text of 16-bit or 8-bit characters.
template <class Text>
std::string plainOf(const Text& text) {
    return text.toQString().toStdString();
}

/// Of UTF-8.
inline QString wide(const std::string& text) {
    return QString::fromStdString(text);
}

/// Names a table's rows by their first field.
inline constexpr auto rowName = [](const auto& row) { return row.param.what; };

}  // namespace vxTest
