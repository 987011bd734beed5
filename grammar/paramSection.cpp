#include "grammar/paramSection.h"

#include "grammar/markedText.h"
#include "scan/scanBudget.h"
#include "shared/vxLatin.h"
#include "shared/vxNumber.h"

namespace vxP {

namespace {

constexpr QLatin1String nodeExpression{"`chsop(\\"};

QString cutAt(QString text, _size end) {
    if (end >= 0) text.truncate(end);
    return text;
}

QString behindOpeningParenthesis(const QString& line) {
    return line.mid(line.indexOf(QLatin1Char('(')) + 1);
}

}  // namespace

_sectionStep nextParameter(QTextStream& stream, QString& line) {
    while (!stream.atEnd()) {
        line = stream.readLine().trimmed();
        spendWork(parameterLineCost, line.size());
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        return line.startsWith(QLatin1Char('}')) ? _sectionStep::closed : _sectionStep::parameter;
    }
    return _sectionStep::cutOff;
}

bool isNamed(const QString& line, QLatin1String name) {
    return line.startsWith(name, Qt::CaseInsensitive);
}

QString parameterName(const QString& line) {
    return textBefore(line, u'\t');
}

QString nodePathOf(const QString& header, std::span<const QLatin1String> roots, _unendedPath unended) {
    QString path = header;
    for (const QLatin1String root : roots) {
        const _size start = header.indexOf(root);
        if (start < 0) continue;
        path = header.mid(start);
        break;
    }
    const _size end = path.indexOf(vxS::latin(sectionSuffix));
    if (end < 0 && unended == _unendedPath::isEmpty) path.clear();
    path = QLatin1Char('/') + cutAt(path, end);
    path.squeeze();  // it may have been cut out of a line of half a megabyte, and is kept
    return path;
}

QString parenthesised(const QString& line) {
    const QString rest = behindOpeningParenthesis(line);
    return cutAt(rest, rest.indexOf(QLatin1Char(')'))).trimmed();
}

QString outerParenthesised(const QString& line) {
    const QString rest = behindOpeningParenthesis(line);
    return cutAt(rest, rest.lastIndexOf(QLatin1Char(')'))).trimmed();
}

QString unquoted(const QString& line) {
    return parenthesised(line).remove(QLatin1Char('"')).trimmed();
}

QString withoutOuterQuotes(QString value) {
    if (value.startsWith(QLatin1Char('"'))) value.remove(0, 1);
    if (value.endsWith(QLatin1Char('"'))) value.chop(1);
    return value;
}

QString textBefore(const QString& text, QChar separator) {
    return cutAt(text, text.indexOf(separator));
}

QString textBehind(const QString& text, QChar separator) {
    return text.mid(text.indexOf(separator) + 1);
}

QString firstField(const QString& value) {
    return textBefore(value, u'\t');
}

QString nextFields(const QString& value) {
    return textBehind(value, u'\t').trimmed();
}

qint32 integerOf(const QString& text) {
    return vxS::wholeNumber(text);
}

QString withoutChannelReference(const QString& value, const QString& name) {
    const QString reference = QLatin1String("[ ") + name;
    if (!holds(value, QStringView(reference))) return value;
    return withoutAll(value, QStringView(reference)).remove(QLatin1Char(']')).trimmed();
}

bool hasExpression(const QString& value) {
    return value.contains(QLatin1String("chs(")) || value.contains(QLatin1String("chsop("));
}

QString withoutNodeExpression(const QString& value) {
    if (!value.startsWith(nodeExpression)) return value;
    QString path = value.mid(nodeExpression.size() + 1);
    path.chop(1);
    return path;
}

}  // namespace vxP
