// Texts for a terminal: harmless characters, widths in columns, and elision. Widths follow the process's character
// set; wide (CJK) characters take two columns.
#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <functional>

namespace vxH {

/// The text with something else for every character that could steer a terminal or reorder a line: control and format
/// characters, line separators, halves of surrogate pairs, and what Unicode has given no meaning yet.
/// @param instead  gets the character, of one or two units
QString withoutHarmful(QStringView text, const std::function<QString(QStringView character)>& instead);

/// The same with "?" for each.
QString printable(QStringView text);

/// Columns that a printable text takes.
int columnsOf(QStringView text);

/// The text in at most `columns` columns, with "..." for what is left out of its middle.
QString elideMiddle(QStringView text, int columns);

/// The same for a path, whose last part stays whole as long as it fits; otherwise its end stays.
QString elidePath(QStringView path, int columns);

/// The text with blanks behind it, so that it takes at least that many columns.
QString filledUp(const QString& text, int columns);

QString withoutEndBlanks(QString text);

/// "1 job", "12 jobs"
QString counted(qint64 count, const char* one, const char* several);

/// A printable text in lines of at most `width` columns, broken at blanks and, where there is none, behind a "/" or
/// anywhere. All lines but the first are indented. Blanks at the beginning stay.
/// @param width  0: one line
QStringList wrapped(const QString& text, int width, int indent);

// Escape sequences that all commands use.
constexpr QLatin1String headingColour{"\x1b[1m"};
constexpr QLatin1String markedColour{"\x1b[33m"};    ///< for what somebody should look at
constexpr QLatin1String driverColour{"\x1b[1;36m"};  ///< for the output drivers of jobs

/// The text in a colour, given as its escape sequence; as it is without one.
QString coloured(const QString& text, QLatin1String colour);

}  // namespace vxH
