#include "host/engines/shellWords.h"

#include <QStringList>
#include <algorithm>

namespace vxH {
namespace {

constexpr QLatin1String plainMarks{"/._-+:,@%"};

bool isPlain(QChar character) {
    return character.unicode() < 128 && (character.isLetterOrNumber() || plainMarks.contains(character));
}

QString filled(const QString& value, int digits) {
    return QLatin1String{"\"$(printf %0"} + QString::number(digits) + QLatin1String{"d "} + value +
           QLatin1String{")\""};
}

QString shellPiece(const _wordPiece& piece, const _farmStep& step, const _shellDialect& dialect) {
    QString value;
    switch (piece.value) {
        case _taskValue::none:
            return dialect.quoted(piece.text);
        case _taskValue::first:
        case _taskValue::frame:
            value = dialect.first;
            break;
        case _taskValue::last:
            value = dialect.last;
            break;
        case _taskValue::step:
            value = QString::number(step.frames.step);
            break;
    }
    return piece.digits > 0 ? filled(value, piece.digits) : value;
}

}  // namespace

QString posixQuoted(const QString& text) {
    if (!text.isEmpty() && std::all_of(text.begin(), text.end(), isPlain)) return text;
    QString inner = text;
    inner.replace(QLatin1Char('\''), QLatin1String{"'\\''"});
    return QLatin1Char('\'') + inner + QLatin1Char('\'');
}

QString shellWord(const _taskWord& word, const _farmStep& step, const _shellDialect& dialect) {
    if (word.empty()) return dialect.quoted({});
    QString line;
    for (const auto& piece : word) line += shellPiece(piece, step, dialect);
    return line;
}

QString shellCommand(const _farmStep& step, const _shellDialect& dialect) {
    QStringList words;
    for (const auto& word : step.command) words += shellWord(word, step, dialect);
    return words.join(QLatin1Char(' '));
}

}  // namespace vxH
