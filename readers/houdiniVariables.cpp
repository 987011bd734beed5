#include "readers/houdiniVariables.h"

#include <algorithm>
#include <array>

#include "shared/vxPath.h"

namespace vxP {

namespace {

constexpr QChar variableMark{u'$'};
constexpr std::array sceneExtensions{QLatin1String{".hiplc"}, QLatin1String{".hipnc"}, QLatin1String{".hip"}};

/// Compares the last letter first: the names of a scene's variables often begin alike.
bool beginsWithName(QStringView text, const QString& name) {
    if (name.isEmpty()) return true;
    return text.size() >= name.size() && text.at(name.size() - 1).toCaseFolded() == name.back().toCaseFolded() &&
           text.startsWith(name, Qt::CaseInsensitive);
}

/// Positions of the "$" of a text. Looking at these few is quicker than to search for each form of each variable.
QList<_size> marksOf(const QString& text) {
    QList<_size> marks;
    for (_size at = text.indexOf(variableMark); at >= 0; at = text.indexOf(variableMark, at + 1)) marks.append(at);
    return marks;
}

/// True when the text holds "$name" or "${name".
bool holdsVariable(const QString& text, const QList<_size>& marks, const QString& name) {
    return std::any_of(marks.begin(), marks.end(), [&](_size mark) {
        const QStringView rest = QStringView(text).mid(mark + 1);
        return beginsWithName(rest, name) || (rest.startsWith(u'{') && beginsWithName(rest.mid(1), name));
    });
}

void replaceText(QString& text, const QString& before, const QString& after) {
    text.replace(before, after, Qt::CaseInsensitive);
}

QString plainForm(const QString& name) {
    return variableMark + name;
}

QString bracedForm(const QString& name) {
    return QLatin1String("${") + name + QLatin1Char('}');
}

/// "$name", then "${name}", with `suffix` behind either.
void replaceVariable(QString& text, const QString& name, const QString& value, const QString& suffix = {}) {
    if (!holdsVariable(text, marksOf(text), name)) return;
    replaceText(text, plainForm(name) + suffix, value);
    replaceText(text, bracedForm(name) + suffix, value);
}

/// A value without scene extensions, the meaning of ":r".
QString rootOf(QString value) {
    for (const QLatin1String extension : sceneExtensions) value.remove(extension);
    return value;
}

/// The plain forms go before the braced ones, each with ":r" first.
void replaceSceneVariable(QString& text, const _namevalue& variable) {
    const QString root = rootOf(variable.value);
    for (const QString& form : {plainForm(variable.name), bracedForm(variable.name)}) {
        replaceText(text, form + QLatin1String(":r"), root);
        replaceText(text, form, variable.value);
    }
}

QString driverName(const QString& layer) {
    const _size slash = layer.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? layer.mid(slash + 1) : layer;
}

QString frameText(double frame) {
    return QString::number(frame, 'g', 6);
}

}  // namespace

QString replaceHoudiniVariables(QString text, vxJ::_JobBasics_largePath* job, QList<_namevalue>& variables,
                                const _vxString<500>& sceneFile) {
    if (!text.contains(variableMark)) return text;
    const QString sceneBase = vxS::vxGetFileNameBase(sceneFile.toQString(), u'/');
    const QString sceneFolder = job->sceneDatabaseDir.toQString();
    // Longer names stand before names that begin them.
    replaceVariable(text, QStringLiteral("hipname"), sceneBase, QStringLiteral(":r"));
    replaceVariable(text, QStringLiteral("HIPNAME"), sceneBase);
    replaceVariable(text, QStringLiteral("HIPPATH"), sceneFolder);
    replaceVariable(text, QStringLiteral("HIP"), sceneFolder);
    QList<_size> marks = marksOf(text);
    for (const _namevalue& variable : variables) {
        if (!holdsVariable(text, marks, variable.name)) continue;
        replaceSceneVariable(text, variable);
        marks = marksOf(text);
    }
    replaceVariable(text, QStringLiteral("OS"), driverName(job->layer.toQString()));
    replaceVariable(text, QStringLiteral("RFSTART"), frameText(job->sceneSettings.seqStart));
    replaceVariable(text, QStringLiteral("RFEND"), frameText(job->sceneSettings.seqEnd));
    return text;
}

}  // namespace vxP
