#include "grammar/houdiniVariables.h"

#include <array>

#include "grammar/markedText.h"
#include "grammar/nameText.h"
#include "scan/scanBudget.h"
#include "shared/vxPath.h"

namespace vxP {

namespace {

constexpr QChar variableMark{u'$'};
constexpr std::array sceneExtensions{QLatin1String{".hiplc"}, QLatin1String{".hipnc"}, QLatin1String{".hip"}};

/// Positions of the "$" of a text. It is quicker to look at what follows these few than to search for each form of each
/// variable.
QList<_size> marksOf(const QString& text) {
    QList<_size> marks;
    for (_size at = text.indexOf(variableMark); at >= 0; at = text.indexOf(variableMark, at + 1)) marks.append(at);
    return marks;
}

/// True when the text holds "$name" or "${name".
bool holdsVariable(const QString& text, const QString& name) {
    for (_size at = text.indexOf(variableMark); at >= 0; at = text.indexOf(variableMark, at + 1)) {
        spendWork(comparisonCost, name.size());
        const QStringView rest = QStringView(text).mid(at + 1);
        if (rest.mid(rest.startsWith(u'{') ? 1 : 0).startsWith(name, Qt::CaseInsensitive)) return true;
    }
    return false;
}

QString plainForm(const QString& name) {
    return variableMark + name;
}

QString bracedForm(const QString& name) {
    return QLatin1String("${") + name + QLatin1Char('}');
}

/// "$name", then "${name}", with `suffix` after either.
void replaceVariable(QString& text, const QString& name, const QString& value, const QString& suffix = {}) {
    if (!holdsVariable(text, name)) return;
    replaceInName(text, plainForm(name) + suffix, value, Qt::CaseInsensitive);
    replaceInName(text, bracedForm(name) + suffix, value, Qt::CaseInsensitive);
}

/// A value without scene extensions, the meaning of ":r".
QString withoutSceneExtension(QString value) {
    spendWork(rootOfValueCost, value.size());
    for (const QLatin1String extension : sceneExtensions) value = withoutAll(value, extension);
    return value;
}

/// The plain forms come before the braced ones, each with ":r" first.
void replaceSceneVariable(QString& text, const _namevalue& variable) {
    spendWork(sceneVariableCost, variable.value.size());
    for (const QString& form : {plainForm(variable.name), bracedForm(variable.name)}) {
        const QString rootForm = form + QLatin1String(":r");
        if (holds(text, QStringView(rootForm), Qt::CaseInsensitive))
            replaceInName(text, rootForm, withoutSceneExtension(variable.value), Qt::CaseInsensitive);
        replaceInName(text, form, variable.value, Qt::CaseInsensitive);
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

QString replaceHoudiniVariables(QString text, vxJ::_JobBasics_largePath* job, const _variableList& variables,
                                const _vxString<500>& sceneFile) {
    spendWork(nameTranslationCost);
    text.truncate(longestName);
    if (!text.contains(variableMark)) return text;
    const QString sceneBase = vxS::vxGetFileNameBase(sceneFile.toQString(), u'/');
    const QString sceneFolder = job->sceneDatabaseDir.toQString();
    // A longer name comes before names that it begins with.
    replaceVariable(text, QStringLiteral("hipname"), sceneBase, QStringLiteral(":r"));
    replaceVariable(text, QStringLiteral("HIPNAME"), sceneBase);
    replaceVariable(text, QStringLiteral("HIPPATH"), sceneFolder);
    replaceVariable(text, QStringLiteral("HIP"), sceneFolder);
    for (_size next = 0; (next = variables.firstNamedIn(text, marksOf(text), next)) >= 0; ++next)
        replaceSceneVariable(text, variables.at(next));
    replaceVariable(text, QStringLiteral("OS"), driverName(job->layer.toQString()));
    replaceVariable(text, QStringLiteral("RFSTART"), frameText(job->sceneSettings.seqStart));
    replaceVariable(text, QStringLiteral("RFEND"), frameText(job->sceneSettings.seqEnd));
    return text;
}

}  // namespace vxP
