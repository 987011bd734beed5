#include "resolve/resolvedSection.h"

#include <algorithm>
#include <cmath>

#include "drivers/outNodeRules.h"
#include "evaluate/sequenceText.h"
#include "resolve/frameGuard.h"
#include "resolve/stageSettings.h"
#include "scan/scanBudget.h"
#include "scan/scanState.h"
#include "shared/vxLatin.h"

namespace vxP {

namespace {

using vxS::textOfUtf8;

// Parameters that more than their reader looks at.
constexpr std::string_view frameRange{"f"};
constexpr std::string_view rangeSwitch{"trange"};
constexpr std::string_view otherRangeSwitch{"range_mode"};  ///< of a third party's driver without the usual one
constexpr std::string_view wholeRange{"normal"};
constexpr std::string_view loadSwitch{"loadfromdisk"};
constexpr std::string_view settingsImage{"picture"};
constexpr std::string_view stepsOfChannel{"steps"};  ///< of a wedge; its number follows
constexpr std::string_view cameraResolution{"res"};
constexpr std::string_view resolutionFraction{"res_fraction"};
constexpr std::size_t mostReadNames = 10'000;  ///< that are kept
constexpr double largestSide = 65535;          // pixels, as records count them
constexpr std::array cameraNames{std::string_view{"camera"}, std::string_view{"RS_renderCamera"}};

/// Toggles of a driver that its reader knows by their words; a channel gives them a number.
constexpr std::array toggles{
    std::string_view{"soho_outputmode"},    std::string_view{"ar_ass_export_enable"},
    std::string_view{"RS_archive_enable"},  std::string_view{"rib_outputmode"},
    std::string_view{"diskfile"},           std::string_view{"fileperframe"},
    std::string_view{"override_camerares"}, std::string_view{"RS_overrideCameraRes"},
};

/// Images that only a window shows, and the one of them that readers know.
constexpr QLatin1String otherViewer{"md"};
constexpr QLatin1String viewer{"ip"};

/// How a driver overrides its camera's resolution.
struct _override {
    std::string_view isOn;
    std::string_view resolution;
};
constexpr std::array overrides{_override{"override_camerares", "res_override"},
                               _override{"RS_overrideCameraRes", "RS_overrideRes"}};

bool isOutput(std::string_view parameter) {
    return roleOf(textOfUtf8(parameter) + QLatin1Char('\t')) == _parameterRole::output;
}

/// A line break within a value would end its line.
QString onOneLine(QString text) {
    return text.replace(QLatin1Char('\n'), QLatin1Char(' ')).remove(QLatin1Char('\r'));
}

QString inQuotes(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString lineOf(std::string_view name, const QString& values) {
    return textOfUtf8(name) + QLatin1String("\t[ 0\tlocks=0 ]\t(\t") + onOneLine(values) + QLatin1String("\t)\n");
}

std::optional<double> literalNumber(std::string_view text) {
    double number = 0;
    return vxV::readNumber(text, number) ? std::optional<double>(number) : std::nullopt;
}

bool mayNeedComputing(const vxN::_value& value) {
    return value.isDriven() || value.text.find_first_of("`$") != std::string_view::npos;
}

/// As Houdini cuts a number where it needs a whole one.
QString wholeNumber(const QString& text) {
    const auto number = literalNumber(text.toStdString());
    return number && std::abs(*number) < 1e9 ? QString::number(std::llround(std::trunc(*number))) : text;
}

QString expressionOf(const vxN::_node& node, const vxN::_value& value) {
    if (!value.isDriven()) return textOfUtf8(value.text);
    const auto channel = node.channel(value.channel);
    if (channel == nullptr || channel->segments.empty()) return {};
    return channel->isExpression() ? textOfUtf8(channel->segments[0].expression) : QStringLiteral("keys");
}

void tellValue(const vxN::_node& node, std::string_view name, const vxN::_value& value, const QString& result,
               const QString& reason) {
    if (scanObserver == nullptr) return;
    scanObserver->resolved({textOfUtf8(node.path()), textOfUtf8(value.isDriven() ? value.channel : name),
                            expressionOf(node, value), value.isDriven() ? textOfUtf8(value.text) : QString(), result,
                            reason});
}

/// True for a parameter that the reader looks at. A driver's size is told by other means.
bool isAmongParameters(const _sectionKind& kind, std::string_view name) {
    const auto names = kind.parameters();
    const QString line = textOfUtf8(name) + QLatin1Char('\t');
    const bool isSize =
        kind.reader == _sectionReader::driver &&
        std::any_of(overrides.begin(), overrides.end(), [&](const _override& way) { return way.resolution == name; });
    return !name.empty() && !isSize && std::any_of(names.begin(), names.end(), [&](QLatin1String known) {
        return line.startsWith(known, Qt::CaseInsensitive);
    });
}

/// What a driver's reader knows by another word.
QString inReadersWords(std::string_view name, const QString& text) {
    const auto number = literalNumber(text.toStdString());
    if (number && std::find(toggles.begin(), toggles.end(), name) != toggles.end())
        return *number != 0 ? QStringLiteral("on") : QStringLiteral("off");
    return text == otherViewer && isOutput(name) ? QString(viewer) : guardedFromFrames(text);
}

}  // namespace

struct _sectionResolver::_target {
    const vxN::_node& node;
    const _sectionKind& kind;
    const _nodeType* type;           ///< null: not known
    const _outputParameter* output;  ///< of a driver of a known type
    QString& lines;
};

/// Nodes of a type have the same names, and a driver is looked at in many takes and variants.
bool _sectionResolver::isRead(const _sectionKind& kind, std::string_view name) {
    spendWork(parameterNameCost, static_cast<qint64>(name.size()));
    auto& known = readNames[static_cast<std::size_t>(kind.reader)];
    if (known.size() >= mostReadNames) known.clear();
    const auto [place, isNew] = known.try_emplace(std::string(name));
    if (isNew) place->second = isAmongParameters(kind, name);
    return place->second;
}

/// The name by which a reader gets a parameter; empty: another parameter names the output.
std::string_view _sectionResolver::nameForReader(const _target& target, std::string_view name) {
    if (target.output == nullptr || name == target.type->stageFile) return name;
    if (target.output->name == name) return target.output->readAs.empty() ? name : target.output->readAs;
    if (!isRead(target.kind, name)) return {};
    return isOutput(name) ? std::string_view() : name;
}

std::optional<bool> _sectionResolver::isOn(const vxN::_node& node, std::string_view parameter) {
    if (node.parameter(parameter) == nullptr) return {};
    const auto text = evaluator.text(node, parameter);
    if (!text) return {};
    const auto number = literalNumber(*text);
    return number ? *number != 0 : *text != "off";
}

_idle _sectionResolver::idleness(const vxN::_node& node, const _nodeType* type) {
    if (node.definition()->isOn(vxN::_flag::bypass).value_or(false)) return _idle::bypassed;
    if (type == nullptr) return _idle::no;
    if (type->writes == _writes::never) return _idle::savedByHand;
    if (type->writes == _writes::always) return _idle::no;
    if (isOn(node, loadSwitch).value_or(false)) return _idle::loadsFromDisk;
    return _idle::no;
}

/// A number is that of the current frame, a name that of every frame.
vxV::_textOutcome _sectionResolver::textOf(const vxN::_node& node, const vxN::_value& value) {
    const auto textNow = [&](vxV::_dependence& dependence) {
        return value.isDriven() ? evaluator.text(node, value.channel, &dependence)
                                : evaluator.expand(node, value.text, &dependence);
    };
    vxV::_dependence dependence;
    if (const auto now = textNow(dependence); !now || literalNumber(*now)) return now;
    return vxV::sequenceText(evaluator, textNow);
}

/// What one component of a parameter reads as.
QString _sectionResolver::valueOf(const _target& target, const vxN::_parameter& parameter, const vxN::_value& value) {
    if (!mayNeedComputing(value)) return textOfUtf8(value.text);
    const vxV::_textOutcome text = textOf(target.node, value);
    const QString result = text ? textOfUtf8(*text) : QString();
    const bool isExpression = value.isDriven() || value.text.find('`') != std::string_view::npos;
    if (isExpression)
        tellValue(target.node, parameter.name, value, result, text ? QString() : vxV::sentenceOf(text.why()));
    return text ? result : textOfUtf8(value.text);
}

std::optional<double> _sectionResolver::frame(const vxN::_node& node, const vxN::_value& value) {
    if (value.isRandom) return {};
    if (!value.isDriven()) return literalNumber(value.text);
    const auto number = evaluator.number(node, value.channel);
    return number ? std::optional<double>(*number) : std::nullopt;
}

/// @param result  empty: it has none
void _sectionResolver::tellNumber(const vxN::_node& node, std::string_view name, const vxN::_value& value,
                                  const QString& result) {
    const auto number = evaluator.number(node, value.channel);
    tellValue(node, name, value, result, number ? QString() : vxV::sentenceOf(number.why()));
}

/// Start, end and step as whole frames. A component that cannot be told is the stored one; where that is 0, as Houdini
/// stores it before it has looked, the scene's.
void _sectionResolver::addFrames(const _target& target, const vxN::_parameter& parameter) {
    const std::array<qint32, 3> ofScene{GLseqStart, GLseqEnd, GLseqStep};
    QStringList frames;
    for (std::size_t i = 0; i < parameter.values.size() && i < ofScene.size(); ++i) {
        const vxN::_value& value = parameter.values[i];
        const auto known = frame(target.node, value);
        const double stored = literalNumber(value.text).value_or(0);
        const double number = known ? *known : stored != 0 ? stored : ofScene[i];
        const bool fits = std::abs(number) < 1e9;
        const QString text = QString::number(fits ? std::llround(number) : ofScene[i]);
        frames.append(text);
        if (!value.isDriven()) continue;
        tellNumber(target.node, parameter.name, value, known ? text : QString());
    }
    target.lines += lineOf(parameter.name, frames.join(QLatin1Char('\t')));
}

/// Cameras are compared by their whole path.
QString _sectionResolver::cameraPath(const vxN::_node& node, const QString& path) const {
    const vxN::_node camera = node.find(path.toStdString());
    return camera ? textOfUtf8(camera.path()) : path;
}

void _sectionResolver::addParameter(const _target& target, const vxN::_parameter& parameter, std::string_view name) {
    QStringList values;
    for (const vxN::_value& value : parameter.values) {
        QString text = valueOf(target, parameter, value);
        if (std::find(cameraNames.begin(), cameraNames.end(), name) != cameraNames.end())
            text = cameraPath(target.node, text);
        if (value.isDriven() && target.kind.reader == _sectionReader::wedge && name.starts_with(stepsOfChannel))
            text = wholeNumber(text);
        if (target.kind.reader == _sectionReader::driver) text = inReadersWords(name, text);
        values.append(value.isQuoted ? inQuotes(text) : text);
    }
    target.lines += lineOf(name, values.join(QLatin1Char('\t')));
}

vxN::_node _sectionResolver::cameraOf(const vxN::_node& driver) {
    vxN::_node camera;
    for (const std::string_view name : cameraNames)
        if (const auto path = evaluator.text(driver, name); path && !path->empty()) camera = driver.find(*path);
    return camera;
}

std::optional<_sectionResolver::_imageSize> _sectionResolver::sizeOf(const vxN::_node& node, std::string_view name) {
    _imageSize size{};
    const auto parameter = node.parameter(name);
    if (parameter == nullptr || parameter->values.size() < size.size()) return {};
    for (std::size_t i = 0; i < size.size(); ++i) {
        const vxN::_value& value = parameter->values[i];
        const auto number = frame(node, value);
        if (value.isDriven()) tellNumber(node, name, value, number ? QString::number(*number) : QString());
        if (!number || *number < 0 || *number > largestSide) return {};
        size[i] = *number;
    }
    return size;
}

/// The size that an override makes of the camera's.
std::optional<_sectionResolver::_imageSize> _sectionResolver::overriddenSize(const vxN::_node& driver,
                                                                             std::string_view resolution,
                                                                             const std::optional<_imageSize>& camera) {
    const auto fraction = evaluator.text(driver, resolutionFraction);
    if (driver.channel(resolutionFraction) != nullptr && fraction && literalNumber(*fraction)) return {};  // its place
    const auto factor = fraction ? literalNumber(*fraction) : std::nullopt;
    if (!factor || !camera) return sizeOf(driver, resolution);
    return _imageSize{(*camera)[0] * *factor, (*camera)[1] * *factor};
}

/// The camera's, or the driver's own where it overrides it.
void _sectionResolver::addResolution(const _target& target) {
    const vxN::_node camera = cameraOf(target.node);
    auto size = camera ? sizeOf(camera, cameraResolution) : std::nullopt;
    for (const _override& way : overrides)
        if (isOn(target.node, way.isOn).value_or(false)) size = overriddenSize(target.node, way.resolution, size);
    if (!size) return;
    QStringList sides;
    for (const double side : *size) sides.append(QString::number(std::llround(side)));
    target.lines += lineOf(overrides.front().resolution, sides.join(QLatin1Char('\t')));
}

/// False: the driver names its image itself, or renders no stage.
bool _sectionResolver::addStageImage(const _target& target, const vxN::_parameter& parameter, std::string_view name) {
    const bool isImage =
        target.type != nullptr && target.type->rendersSettings && parameter.name == target.type->outputs.front().name;
    if (!isImage || !valueOf(target, parameter, parameter.values.front()).isEmpty()) return false;
    const auto [settings, reason] = stageSettingsOf(target.node, evaluator);
    const auto picture = settings.component(settingsImage);
    const auto text = picture ? textOf(settings, *picture) : vxV::_textOutcome(std::string());
    const QString why = !settings ? reason : text ? QString() : vxV::sentenceOf(text.why());
    if (settings && text) target.lines += lineOf(name, inQuotes(guardedFromFrames(textOfUtf8(*text))));
    if (scanObserver != nullptr)
        scanObserver->resolved({textOfUtf8(target.node.path()),
                                textOfUtf8(parameter.name),
                                settings ? textOfUtf8(settings.path()) + QLatin1String("/picture") : QString(),
                                {},
                                text ? textOfUtf8(*text) : QString(),
                                why});
    if (!settings) tellOfSection(_remark::stageNamesNoImage, why);
    return true;
}

/// Third parties' drivers have a range that always counts, or a switch of another name.
void _sectionResolver::addRangeSwitch(const _target& target) {
    const vxN::_node& node = target.node;
    if (target.type == nullptr || target.type->space.empty() || node.parameter(rangeSwitch) != nullptr) return;
    const bool hasOther = node.parameter(otherRangeSwitch) != nullptr;
    const auto range = hasOther ? evaluator.text(node, otherRangeSwitch) : vxV::_textOutcome(std::string(wholeRange));
    if (range) target.lines += lineOf(rangeSwitch, inQuotes(textOfUtf8(*range)));
}

/// True for a scene description that is gone when the render is done: no job exports it.
bool _sectionResolver::isTemporary(const _target& target, const vxN::_parameter& parameter) {
    if (target.type == nullptr || !target.type->rendersSettings || parameter.name != target.type->stageFile)
        return false;
    const QString file = valueOf(target, parameter, parameter.values.front());
    const bool isIt = file.mid(file.lastIndexOf(QLatin1Char('/')) + 1) == vxS::latin(temporaryExport);
    if (isIt) tellOfSection(_remark::exportIsTemporary, file);
    return isIt;
}

void _sectionResolver::tellCurrentFrame(const vxN::_node& node) {
    if (scanObserver == nullptr) return;
    for (const std::string_view name : {rangeSwitch, otherRangeSwitch}) {
        const auto range =
            node.parameter(name) == nullptr ? vxV::_textOutcome(std::string()) : evaluator.text(node, name);
        if (range && *range == "off") tellOfSection(_remark::currentFrameOnly);
    }
}

void _sectionResolver::addLine(const _target& target, const vxN::_parameter& parameter, std::string_view name,
                               const _given& given) {
    const bool isFrames = target.kind.reader == _sectionReader::driver && name == frameRange;
    if (name == given.name)
        target.lines += lineOf(name, inQuotes(given.value));
    else if (isFrames)
        addFrames(target, parameter);
    else if (!addStageImage(target, parameter, name))
        addParameter(target, parameter, name);
}

QString _sectionResolver::linesOf(const vxN::_node& node, const _sectionKind& kind, const _nodeType* type,
                                  const _given& given) {
    QString lines;
    const bool isDriver = kind.reader == _sectionReader::driver;
    const _target target{node, kind, type, isDriver && type != nullptr ? outputOf(node, *type) : nullptr, lines};
    if (isDriver) addRangeSwitch(target);
    const auto parameters = node.parameters();
    for (const vxN::_parameter& own : parameters->all()) {
        const std::string_view name = nameForReader(target, own.name);
        if (own.values.empty() || !isRead(kind, name)) continue;
        spendWork(sectionCost);
        const auto parameter = node.parameter(own.name);  // with what a layer says of it
        if (!isTemporary(target, *parameter)) addLine(target, *parameter, name, given);
    }
    if (isDriver) {
        addResolution(target);
        tellCurrentFrame(node);
    }
    return lines + QLatin1String("}\n");
}

}  // namespace vxP
