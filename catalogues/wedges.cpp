#include "catalogues/wedges.h"

#include <array>
#include <charconv>
#include <cmath>
#include <map>

#include "catalogues/listIndex.h"
#include "grammar/paramRules.h"
#include "grammar/paramSection.h"
#include "scan/scanObserver.h"
#include "shared/vxNumber.h"

namespace vxP {

namespace {

constexpr QLatin1String channelMethod{"channel"};
constexpr QLatin1String parentFolder{"../"};
constexpr QLatin1String stepsName{"steps"};

/// A scene never has more channels.
constexpr int greatestInstance = 10000;

/// Characters of a variant's name that a record can hold.
constexpr _size longestVariantName = 1000;

/// What a wedge section has told so far.
struct _wedgeSection {
    _wedgeNode node;
    std::map<int, _wedgeParams> channels;  ///< by instance number; a scene may name the last one first
    qint64 bytesOfNames = 0;
};

// ---- one handler a parameter

/// The channel that a line's instance number names; null when it names none.
_wedgeParams* channelOf(_wedgeSection& section, int instance) {
    return instance < 1 || instance > greatestInstance ? nullptr : &section.channels[instance];
}

_step readPrefix(_wedgeSection& section, const QString& line) {
    section.node.prefix = unquoted(line);
    return _step::next;
}

/// Only one leading "../" is resolved.
_step readDriver(_wedgeSection& section, const QString& line) {
    _wedgeNode& node = section.node;
    node.driver = unquoted(line);
    if (node.driver.startsWith(parentFolder))
        node.driver.replace(0, parentFolder.size(),
                            node.nodePath.left(node.nodePath.lastIndexOf(QLatin1Char('/')) + 1));
    return _step::next;
}

_step readMethod(_wedgeSection& section, const QString& line) {
    section.node.wedgeMethod = unquoted(line);
    return _step::next;
}

/// Instance number in front of the TAB of a line whose word was cut off.
int instanceOf(const QString& rest, bool& isNumber) {
    return vxS::wholeNumber(parameterName(rest), &isNumber);
}

_step readName(_wedgeSection& section, const QString& rest) {
    bool isNumber = false;
    const int instance = instanceOf(rest, isNumber);
    if (!isNumber) return _step::leave;
    _wedgeParams* const channel = channelOf(section, instance);
    if (channel == nullptr) return _step::next;
    const QString name = unquoted(rest).left(longestVariantName);
    const qint64 added = bytesOf(name) - bytesOf(channel->name);
    keepMemory(added);
    section.bytesOfNames += added;
    channel->name = name;
    return _step::next;
}

_step readSteps(_wedgeSection& section, const QString& rest) {
    bool isNumber = false;
    const int instance = instanceOf(rest, isNumber);
    _wedgeParams* const channel = channelOf(section, instance);
    if (channel == nullptr) return _step::next;
    channel->steps = vxS::wholeNumber(unquoted(rest), &isNumber);
    if (!isNumber && scanObserver != nullptr) tell(_remark::stepsUnknown, stepsName + rest);
    return _step::next;
}

_step readRange(_wedgeSection& section, const QString& rest) {
    bool isNumber = false;
    const int instance = instanceOf(rest, isNumber);
    if (!isNumber) return _step::leave;
    _wedgeParams* const channel = channelOf(section, instance);
    if (channel == nullptr) return _step::next;
    const QString value = unquoted(rest).replace(QLatin1Char(','), QLatin1Char('.')).trimmed();
    spendWork(wedgeRangeCost, value.size());
    channel->start = firstField(value).toDouble();
    channel->end = nextFields(value).toDouble();
    return _step::next;
}

struct _wedgeRule {
    QLatin1String name;  ///< line prefix, letter case ignored; TAB ends a whole name
    _step (*handle)(_wedgeSection&, const QString& line);
    bool isNumbered = false;  ///< a word in front of an instance number; the handler gets what follows the word
};

constexpr std::array wedgeRules{
    // first match wins
    _wedgeRule{QLatin1String{"prefix\t"}, readPrefix},
    _wedgeRule{QLatin1String{"driver\t"}, readDriver},
    _wedgeRule{QLatin1String{"wedgemethod\t"}, readMethod},
    _wedgeRule{QLatin1String{"name"}, readName, true},
    _wedgeRule{stepsName, readSteps, true},
    _wedgeRule{QLatin1String{"range"}, readRange, true},
};

constexpr auto wedgeNames = ruleNames(wedgeRules);

_step applyWedgeRules(_wedgeSection& section, const QString& line) {
    for (const auto& rule : wedgeRules)
        if (isNamed(line, rule.name)) return rule.handle(section, rule.isNumbered ? line.mid(rule.name.size()) : line);
    return _step::next;
}

/// Channels that were left out have no steps, so that there is no variant: such a wedge goes without channels.
void takeChannels(_wedgeSection& section) {
    const bool noneLeftOut = static_cast<int>(section.channels.size()) == section.channels.rbegin()->first;
    if (!noneLeftOut) tellOfSection(_remark::channelsLeftOut);
    for (auto channel = section.channels.begin(); noneLeftOut && channel != section.channels.end(); ++channel)
        section.node.params.append(channel->second);
}

qint64 bytesOfWedge(const _wedgeNode& node) {
    qint64 bytes = static_cast<qint64>(sizeof node);
    for (const QString& text : {node.prefix, node.nodePath, node.driver, node.wedgeMethod}) bytes += bytesOf(text);
    for (const _wedgeParams& channel : node.params)
        bytes += static_cast<qint64>(sizeof channel) + bytesOf(channel.name);
    return bytes;
}

bool isComplete(_wedgeNode& node) {
    const bool hasDriver = !node.driver.isEmpty();
    const bool hasVariants = node.totalWedges() >= 1;
    const bool variesChannels = node.wedgeMethod.compare(channelMethod, Qt::CaseInsensitive) == 0;
    if (!hasDriver) tellOfSection(_remark::wedgeWithoutDriver);
    if (!hasVariants) tellOfSection(_remark::wedgeWithoutVariants);
    if (!variesChannels) tellOfSection(_remark::wedgeOfOtherMethod, node.wedgeMethod);
    return hasDriver && hasVariants && variesChannels;
}

/// Six digits after the point. A number without a fraction may have three hundred before it, which Qt takes a hundred
/// microseconds for; no such number is rounded.
QString numberText(double number) {
    constexpr double firstWithoutFraction = 9007199254740992.0;  // 2^53
    if (!std::isfinite(number) || std::abs(number) < firstWithoutFraction) return QString::number(number, 'f', 6);
    std::array<char, 512> digits{};
    const auto written = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed, 6);
    return QString::fromLatin1(digits.data(), static_cast<int>(written.ptr - digits.data()));
}

/// @param take  gets a channel and its value in the variant; false: the others are not wanted
template <typename Take>
void forEachValue(const _wedgeNode& wedge, int variant, Take take) {
    for (const _wedgeParams& channel : wedge.params) {
        spendWork(wedgeChannelCost);
        if (!take(channel, channel.valueIdx(variant % channel.steps))) return;
        variant /= channel.steps;
    }
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

std::pair<qint32, qint32> _wedgeNode::variants() {
    return onlyVariant ? std::pair(*onlyVariant, *onlyVariant + 1) : std::pair(0, totalWedges());
}

std::vector<double> _wedgeNode::valuesOf(int wedgeIndex) const {
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(params.size()));
    forEachValue(*this, wedgeIndex, [&](const _wedgeParams&, double value) {
        values.push_back(value);
        return true;
    });
    return values;
}

QString _wedgeNode::getWedgeFileName(int wedgeIndex) const {
    QString name = prefix.left(longestVariantName);
    if (name.size() >= longestVariantName) return name;
    forEachValue(*this, wedgeIndex, [&](const _wedgeParams& channel, double value) {
        name += QLatin1Char('_') + channel.name + QLatin1Char('_') + numberText(value);
        return name.size() < longestVariantName;
    });
    return name;
}

qint32 loadWedgeNode(_dataPARS_LoadSceneFile* /*load*/, QTextStream& stream, QString& line) {
    return readWedgeNode({nodePathOf(line, objectRoots, _unendedPath::isEmpty)}, stream, line);
}

qint32 readWedgeNode(const _sectionNode& known, QTextStream& stream, QString& line) {
    _wedgeSection section;
    section.node.nodePath = known.path;
    tellReader(_sectionReader::wedge, section.node.nodePath);
    const qint32 result = readSection(
        stream, line, [&](const QString& parameter) { return applyWedgeRules(section, parameter); },
        [&] {
            if (!section.channels.empty()) takeChannels(section);
            if (!isComplete(section.node)) return resultSuccess;
            keepMemory(bytesOfWedge(section.node));
            wedges.append(section.node);
            return resultSuccess;
        });
    keepMemory(-section.bytesOfNames);
    return result;
}

}  // namespace vxP
