#include "host/engines/shellWords.h"

#include <QStringList>
#include <algorithm>

namespace vxH {
namespace {

constexpr QLatin1String plainMarks{"/._-+:,@%"};

bool isPlain(QChar character) {
    return character.unicode() < 128 && (character.isLetterOrNumber() || plainMarks.contains(character));
}

QString valueIn(const _shellDialect& dialect, _taskValue value) {
    switch (value) {
        case _taskValue::none:
            return {};
        case _taskValue::first:
        case _taskValue::frame:
            return dialect.first;
        case _taskValue::last:
            return dialect.last;
        case _taskValue::step:
            return dialect.step;
    }
    return {};
}

QString shellPiece(const _wordPiece& piece, const _shellDialect& dialect) {
    if (piece.value == _taskValue::none) return dialect.quoted(piece.text);
    const QString value = valueIn(dialect, piece.value);
    if (piece.digits == 0) return value;
    return QLatin1String{"\"$(printf %0"} + QString::number(piece.digits) + QLatin1String{"d "} + value +
           QLatin1String{")\""};
}

}  // namespace

QString posixQuoted(const QString& text) {
    if (!text.isEmpty() && std::all_of(text.begin(), text.end(), isPlain)) return text;
    QString inner = text;
    inner.replace(QLatin1Char('\''), QLatin1String{"'\\''"});
    return QLatin1Char('\'') + inner + QLatin1Char('\'');
}

QString shellWord(const _taskWord& word, const _shellDialect& dialect) {
    if (word.empty()) return dialect.quoted({});
    QString line;
    for (const auto& piece : word) line += shellPiece(piece, dialect);
    return line;
}

QString shellCommand(const std::vector<_taskSetting>& environment, const std::vector<_taskWord>& command,
                     const _shellDialect& dialect) {
    QStringList words{QStringLiteral("env")};
    for (const auto& setting : environment)
        words += setting.name + QLatin1Char('=') + shellWord(setting.value, dialect);
    for (const auto& word : command) words += shellWord(word, dialect);
    return words.join(QLatin1Char(' '));
}

}  // namespace vxH
