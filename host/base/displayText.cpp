// Widths and elision count whole characters, never halves of surrogate pairs.
#include "host/base/displayText.h"

#include <algorithm>
#include <cwchar>

namespace vxH {
namespace {

constexpr QLatin1String plainColour{"\x1b[0m"};
constexpr QLatin1String ellipsis{"..."};
constexpr int ellipsisColumns = 3;

struct _character {
    char32_t code;
    qsizetype units;  // 16-bit units it takes
};

_character characterAt(QStringView text, qsizetype position) {
    const QChar first = text[position];
    if (first.isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(first, text[position + 1]), 2};
    return {first.unicode(), 1};
}

bool isHarmless(char32_t code) {
    switch (QChar::category(code)) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Other_Surrogate:
        case QChar::Other_NotAssigned:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return false;
        default:
            return true;
    }
}

int columnsOfCharacter(char32_t code) {
    const int columns = wcwidth(static_cast<wchar_t>(code));
    return columns < 0 ? 1 : columns;
}

/// Units at the start of the text that fit `columns`.
qsizetype headUnits(QStringView text, int columns) {
    qsizetype position = 0;
    while (position < text.size()) {
        const auto character = characterAt(text, position);
        columns -= columnsOfCharacter(character.code);
        if (columns < 0) break;
        position += character.units;
    }
    return position;
}

QStringView headOf(QStringView text, int columns) {
    return text.left(headUnits(text, columns));
}

/// The longest end of the text that fits `columns`.
QStringView tailOf(QStringView text, int columns) {
    int leftOut = std::max(0, vxH::columnsOf(text) - columns);
    qsizetype position = 0;
    while (leftOut > 0) {
        const auto character = characterAt(text, position);
        leftOut -= columnsOfCharacter(character.code);
        position += character.units;
    }
    return text.mid(position);
}

constexpr int leastWrapped = 10;  ///< columns beside an indent

/// Units of the first line of a text that is too long for it. It takes one character at least.
/// @param laterColumns  in which the next line has room: a word that is longer is broken here
int lineUnits(const QString& text, int columns, int laterColumns) {
    const auto fitting = static_cast<int>(headUnits(text, columns));
    const auto most = std::max(fitting, static_cast<int>(characterAt(text, 0).units));
    if (most >= text.size() || text[most] == QLatin1Char(' ')) return most;
    const QString head = text.left(most);
    const auto wordBegin = static_cast<int>(head.lastIndexOf(QLatin1Char(' '))) + 1;
    const QString word = text.mid(wordBegin).section(QLatin1Char(' '), 0, 0);
    const bool hasWords = !head.left(wordBegin).trimmed().isEmpty();
    const auto folders = static_cast<int>(head.lastIndexOf(QLatin1Char('/'))) + 1;
    const bool hasFolders = folders > wordBegin + 1;
    if (hasWords && !(hasFolders && columnsOf(word) > laterColumns)) return wordBegin - 1;
    return hasFolders ? folders : most;
}

}  // namespace

QString withoutHarmful(QStringView text, const std::function<QString(QStringView character)>& instead) {
    QString harmless;
    harmless.reserve(static_cast<decltype(harmless.size())>(text.size()));
    qsizetype begin = 0;  // of what is not copied yet
    for (qsizetype position = 0; position < text.size();) {
        const auto character = characterAt(text, position);
        const auto end = position + character.units;
        if (!isHarmless(character.code)) {
            harmless.append(text.mid(begin, position - begin).toString());
            harmless.append(instead(text.mid(position, character.units)));
            begin = end;
        }
        position = end;
    }
    return harmless.append(text.mid(begin).toString());
}

QString printable(QStringView text) {
    return withoutHarmful(text, [](QStringView) { return QStringLiteral("?"); });
}

int columnsOf(QStringView text) {
    int columns = 0;
    for (qsizetype position = 0; position < text.size();) {
        const auto character = characterAt(text, position);
        columns += columnsOfCharacter(character.code);
        position += character.units;
    }
    return columns;
}

QString elideMiddle(QStringView text, int columns) {
    if (columnsOf(text) <= columns) return text.toString();
    if (columns <= ellipsisColumns) return headOf(text, columns).toString();
    const int kept = columns - ellipsisColumns;
    return headOf(text, kept / 2).toString() + ellipsis + tailOf(text, kept - kept / 2).toString();
}

QString elidePath(QStringView path, int columns) {
    if (columnsOf(path) <= columns) return path.toString();
    const QString whole = path.toString();
    const auto separator = std::max(whole.lastIndexOf(QLatin1Char('/')), whole.lastIndexOf(QLatin1Char('\\')));
    const auto name = path.mid(std::max<qsizetype>(0, separator));
    const int head = columns - ellipsisColumns - columnsOf(name);
    if (head >= 0) return headOf(path, head).toString() + ellipsis + name.toString();
    if (columns <= ellipsisColumns) return tailOf(path, columns).toString();
    return ellipsis + tailOf(path, columns - ellipsisColumns).toString();
}

QString counted(qint64 count, const char* one, const char* several) {
    return QString::number(count) + QLatin1Char(' ') + QLatin1String{count == 1 ? one : several};
}

QString withoutEndBlanks(QString line) {
    while (line.endsWith(QLatin1Char(' '))) line.chop(1);
    return line;
}

QString filledUp(const QString& text, int columns) {
    return text + QString(std::max(0, columns - columnsOf(text)), QLatin1Char(' '));
}

QStringList wrapped(const QString& text, int width, int indent) {
    QStringList lines;
    QString rest = text;
    const QString blanks(width - indent < leastWrapped ? 0 : indent, QLatin1Char(' '));
    while (width > 0 && columnsOf(rest) > width) {
        const int units = lineUnits(rest, width, width - static_cast<int>(blanks.size()));
        lines += withoutEndBlanks(rest.left(units));
        rest = rest.mid(units).trimmed();
        if (rest.isEmpty()) return lines;
        rest.prepend(blanks);
    }
    return lines << rest;
}

QString coloured(const QString& text, QLatin1String colour) {
    return colour.isEmpty() || text.isEmpty() ? text : colour + text + plainColour;
}

}  // namespace vxH
