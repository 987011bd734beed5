#include "shared/vxPath.h"

#include <QDir>
#include <QStringList>

#include "shared/vxString.h"

namespace vxS {

namespace {

constexpr QChar slash{u'/'};
constexpr QChar backslash{u'\\'};

QChar firstSeparator(const QString& text) {
    for (const QChar letter : text)
        if (letter == slash || letter == backslash) return letter;
    return slash;
}

bool hasDrive(const QString& text) {
    return text.size() >= 2 && text.at(1) == QLatin1Char(':') && text.at(0).isLetter() && text.at(0).unicode() < 128;
}

bool beginsWithVariable(const QString& text) {
    return QLatin1String("<$`%").contains(text.at(0));
}

/// The part that ".." cannot remove: "/", "//", "C:/", "C:" or nothing.
QString fixedRoot(const QString& text, QChar separator) {
    _size end = hasDrive(text) ? 2 : 0;
    const _size most = end + (hasDrive(text) ? 1 : 2);
    while (end < text.size() && end < most && text.at(end) == separator) ++end;
    return text.left(end);
}

/// With the separator at its end, which is there already in the root folder.
QString currentFolder(QChar separator) {
    QString folder = QDir::currentPath();
    if (!folder.endsWith(slash)) folder += slash;
    return folder.replace(slash, separator);
}

void resolveComponent(QStringList& resolved, const QString& component, bool firstIsVariable) {
    if (component.isEmpty() || component == QLatin1String(".")) return;
    if (component != QLatin1String("..")) {
        resolved.append(component);
        return;
    }
    const bool upIsUnknown =
        firstIsVariable && !resolved.isEmpty() && (resolved.size() == 1 || resolved.last() == component);
    if (upIsUnknown)
        resolved.append(component);
    else if (!resolved.isEmpty())
        resolved.removeLast();
}

}  // namespace

QString vxGetDirName(const QString& text, QChar separator) {
    const _size end = text.endsWith(separator) ? text.size() - 1 : text.size();
    return end == 0 ? QString() : text.left(text.lastIndexOf(separator, end - 1) + 1);
}

QString vxGetFileNameBase(const QString& text, QChar separator) {
    const QString name = text.mid(text.lastIndexOf(separator) + 1);
    const _size point = name.lastIndexOf(QLatin1Char('.'));
    return point > 0 ? name.left(point) : name;
}

bool vxPathIsAbsolute(const QString& text) {
    return text.isEmpty() || text.at(0) == slash || text.at(0) == backslash || hasDrive(text) ||
           beginsWithVariable(text);
}

QString vxPathResolve(const QString& text) {
    if (text.isEmpty()) return {};
    const QChar separator = firstSeparator(text);
    const QString whole = vxPathIsAbsolute(text) ? text : currentFolder(separator) + text;
    const QString root = fixedRoot(whole, separator);
    const bool firstIsVariable = beginsWithVariable(whole);
    QStringList resolved;
    for (const QString& component : whole.mid(root.size()).split(separator))
        resolveComponent(resolved, component, firstIsVariable);
    QString result = root + resolved.join(separator);
    if (whole.endsWith(separator) && !result.endsWith(separator)) result += separator;
    return result;
}

}  // namespace vxS
