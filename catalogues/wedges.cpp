#include "catalogues/wedges.h"

#include <array>

#include "readers/paramRules.h"
#include "readers/paramSection.h"
#include "shared/vxNumber.h"

namespace vxP {

namespace {

constexpr std::array wedgeRoots{QLatin1String{"out/"}, QLatin1String{"obj/"}};
constexpr QLatin1String channelMethod{"channel"};
constexpr QLatin1String parentFolder{"../"};

/// A scene never has more channels; growing the list for a greater number would exhaust memory.
constexpr int greatestInstance = 10000;

// ---- one handler a parameter

/// The channel that a line's instance number names; null when it names none.
_wedgeParams* channelOf(_wedgeNode& node, int instance) {
    if (instance < 1 || instance > greatestInstance) return nullptr;
    while (node.params.size() < instance) node.params.append(_wedgeParams());
    return &node.params[instance - 1];
}

_step readPrefix(_wedgeNode& node, const QString& line, _size) {
    node.prefix = unquoted(line);
    return _step::next;
}

/// Only one leading "../" is resolved.
_step readDriver(_wedgeNode& node, const QString& line, _size) {
    node.driver = unquoted(line);
    if (node.driver.startsWith(parentFolder))
        node.driver.replace(0, parentFolder.size(),
                            node.nodePath.left(node.nodePath.lastIndexOf(QLatin1Char('/')) + 1));
    return _step::next;
}

_step readMethod(_wedgeNode& node, const QString& line, _size) {
    node.wedgeMethod = unquoted(line);
    return _step::next;
}

/// Instance number between the parameter's name and its TAB.
int instanceOf(const QString& line, _size nameLength, bool& isNumber) {
    return vxS::wholeNumber(parameterName(line).mid(nameLength), &isNumber);
}

_step readName(_wedgeNode& node, const QString& line, _size nameLength) {
    bool isNumber = false;
    const int instance = instanceOf(line, nameLength, isNumber);
    if (!isNumber) return _step::leave;
    if (_wedgeParams* const channel = channelOf(node, instance)) channel->name = unquoted(line);
    return _step::next;
}

_step readSteps(_wedgeNode& node, const QString& line, _size nameLength) {
    bool isNumber = false;
    const int instance = instanceOf(line, nameLength, isNumber);
    if (_wedgeParams* const channel = channelOf(node, instance)) channel->steps = integerOf(unquoted(line));
    return _step::next;
}

_step readRange(_wedgeNode& node, const QString& line, _size nameLength) {
    bool isNumber = false;
    const int instance = instanceOf(line, nameLength, isNumber);
    if (!isNumber) return _step::leave;
    _wedgeParams* const channel = channelOf(node, instance);
    if (channel == nullptr) return _step::next;
    const QString value = unquoted(line).replace(QLatin1Char(','), QLatin1Char('.')).trimmed();
    channel->start = firstField(value).toDouble();
    channel->end = nextFields(value).toDouble();
    return _step::next;
}

struct _wedgeRule {
    QLatin1String name;  ///< line prefix, letter case ignored; TAB ends a whole name
    _step (*handle)(_wedgeNode&, const QString& line, _size nameLength);
};

constexpr std::array wedgeRules{
    // first match wins
    _wedgeRule{QLatin1String{"prefix\t"}, readPrefix},      _wedgeRule{QLatin1String{"driver\t"}, readDriver},
    _wedgeRule{QLatin1String{"wedgemethod\t"}, readMethod}, _wedgeRule{QLatin1String{"name"}, readName},
    _wedgeRule{QLatin1String{"steps"}, readSteps},          _wedgeRule{QLatin1String{"range"}, readRange},
};

constexpr auto wedgeNames = namesOf(wedgeRules);

_step applyWedgeRules(_wedgeNode& node, const QString& line) {
    for (const auto& rule : wedgeRules)
        if (isNamed(line, rule.name)) return rule.handle(node, line, rule.name.size());
    return _step::next;
}

bool isComplete(_wedgeNode& node) {
    return !node.driver.isEmpty() && node.totalWedges() >= 1 &&
           node.wedgeMethod.compare(channelMethod, Qt::CaseInsensitive) == 0;
}

}  // namespace

QList<_wedgeNode> wedges;

std::span<const QLatin1String> wedgeParameters() {
    return wedgeNames;
}

double _wedgeParams::valueIdx(const int& index) const {
    const double spacing = (end - start) / (static_cast<double>(steps) - 1.0);
    return start + index * spacing;
}

qint32 _wedgeNode::totalWedges() {
    if (totalCache >= 0) return totalCache;
    quint32 product = params.isEmpty() ? 0 : 1;
    for (const _wedgeParams& channel : params) product *= static_cast<quint32>(channel.steps);
    totalCache = static_cast<qint32>(product);
    return totalCache;
}

QString _wedgeNode::getWedgeFileName(int wedgeIndex) const {
    QString name = prefix;
    int rest = wedgeIndex;
    for (const _wedgeParams& channel : params) {
        name += QLatin1Char('_') + channel.name + QLatin1Char('_') +
                QString::number(channel.valueIdx(rest % channel.steps), 'f', 6);
        rest /= channel.steps;
    }
    return name;
}

qint32 loadWedgeNode(_dataPARS_LoadSceneFile* /*load*/, QTextStream& stream, QString& line) {
    _wedgeNode node;
    node.nodePath = nodePathOf(line, wedgeRoots, _unendedPath::isEmpty);
    return readSection(
        stream, line, [&](const QString& parameter) { return applyWedgeRules(node, parameter); },
        [&] {
            if (isComplete(node)) wedges.append(node);
            return resultSuccess;
        });
}

}  // namespace vxP
