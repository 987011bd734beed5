// Texts for a terminal: harmless characters, widths in columns, and elision. Widths follow the process's character
// set; wide (CJK) characters take two columns.
#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringView>

namespace vxH {

/// The text with "?" for every character that could steer a terminal or reorder a line: control and format
/// characters, line separators, and halves of surrogate pairs.
QString printable(QStringView text);

/// Columns that a printable text takes.
int columnsOf(QStringView text);

/// The text in at most `columns` columns, with "..." for what is left out of its middle.
QString elideMiddle(QStringView text, int columns);

/// The same for a path, whose last part stays whole as long as it fits; otherwise its end stays.
QString elidePath(QStringView path, int columns);

// Escape sequences that all commands use.
constexpr QLatin1String headingColour{"\x1b[1m"};
constexpr QLatin1String driverColour{"\x1b[1;36m"};  ///< for the output drivers of jobs

/// The text in a colour, given as its escape sequence; as it is without one.
QString coloured(const QString& text, QLatin1String colour);

}  // namespace vxH
