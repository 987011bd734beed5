#include "drivers/outNodeRules.h"

#include <algorithm>

#include "catalogues/camList.h"
#include "catalogues/lopList.h"
#include "drivers/aovFiles.h"
#include "grammar/imageOutVars.h"
#include "grammar/markedText.h"
#include "grammar/nameText.h"
#include "grammar/paramRules.h"
#include "grammar/paramSection.h"
#include "shared/vxLatin.h"

namespace vxP {

namespace {

// ---- when a row counts

bool always(const _driver&) {
    return true;
}
bool hasTrange(const _driver&) {
    return trange;
}
bool isAlembic(const _driver& driver) {
    return driver.has(_kind::alembic);
}
bool hasNoExportName(const _driver& driver) {
    return driver.exportName.isEmpty();
}

/// Kinds with an export switch of their own.
constexpr std::array switchedKinds{_kind::arnold, _kind::redshift, _kind::vray, _kind::renderman};

/// A switch counts until the section turns out to be of another kind that has one.
template <_kind own>
bool isNoneBut(const _driver& driver) {
    return std::none_of(switchedKinds.begin(), switchedKinds.end(),
                        [&](_kind kind) { return kind != own && driver.has(kind); });
}

/// Only Houdini 18.0 wrote this switch in place of a frame number in the name.
bool countsFramesBySwitch(const _driver& driver) {
    return driver.majorVersion == 18 && driver.versionText.startsWith(QLatin1Char('0')) &&
           !driver.exportName.contains(QLatin1Char('%'));
}

// ---- what a row does

_step readTrange(_driver&, const QString& line) {
    if (line.contains(QLatin1String("\"on\"")) || line.contains(QLatin1String("\"normal\""))) trange = true;
    return _step::next;
}

/// `[ f1<TAB>1 ] <TAB>[ f2<TAB>240 ] <TAB>1`. Without "f2" the end value stays in front of the step, which reads as 0:
/// hosts match the jobs of two loads by their frames as well, so such drivers keep it.
void readChannelRange(QString value) {
    constexpr QLatin1String startChannel{"f1"};
    constexpr QLatin1String endChannel{"f2"};
    value = value.mid(value.indexOf(startChannel, 0, Qt::CaseInsensitive) + startChannel.size()).trimmed();
    seqStart = integerOf(textBefore(value, u' '));
    const _size end = value.indexOf(endChannel);
    if (end >= 0) {
        value = value.mid(end + endChannel.size());
        seqEnd = integerOf(textBefore(value, u' '));
        value = value.mid(value.indexOf(QLatin1Char(']')) + 2);
    } else {
        value = value.mid(value.indexOf(QLatin1Char(']')) + 2).trimmed();
        seqEnd = integerOf(firstField(value));
    }
    seqStep = integerOf(value.trimmed());
}

void readPlainRange(const QString& value) {
    if (!value.contains(QLatin1Char('\t'))) return;
    seqStart = integerOf(firstField(value));
    const QString rest = nextFields(value);
    seqEnd = integerOf(firstField(rest));
    seqStep = rest.contains(QLatin1Char('\t')) ? integerOf(nextFields(rest)) : 1;
}

_step readFrameRange(_driver&, const QString& line) {
    const QString value = parenthesised(line);
    tell(_remark::ownFrames, line);
    if (value.contains(QLatin1String("f1"), Qt::CaseInsensitive))
        readChannelRange(value);
    else
        readPlainRange(value);
    return _step::next;
}

_step readImage(_driver& driver, const QString& line) {
    bool noFrameVariable = false;
    const bool stored = replaceImageOutVars(line, driver.has(_kind::redshift), driver.imageName, driver.activeTakeUsed,
                                            noFrameVariable);
    if (stored) driver.oneImageFile = noFrameVariable;
    if (stored && noFrameVariable && driver.has(_kind::alembic)) driver.singleFile = true;
    return _step::next;
}

_step readTake(_driver& driver, const QString& line) {
    driver.take = withoutAll(unquoted(line), QLatin1String("_current_"));
    return _step::next;
}

_step readCamera(_driver& driver, const QString& line) {
    const QString camera = withoutChannelReference(unquoted(line), parameterName(line));
    if (hasExpression(camera)) return _step::next;
    driver.cameraIsProxyExport = camera.startsWith(QLatin1String("proxy_export"), Qt::CaseInsensitive);
    if (!driver.cameraIsProxyExport)
        camList.addCamFromOutNode(_vxString8_allSize<150>(QStringView{camera}), driver.nodePath);
    return _step::next;
}

_step readFileFormat(_driver& driver, const QString& line) {
    const QString format = unquoted(line);
    if (!driver.imageName.endsWith(format, Qt::CaseInsensitive)) appendToName(driver.imageName, format);
    return _step::next;
}

_step readLopPath(_driver& driver, const QString& line) {
    const QString path = unquoted(line);
    if (!path.contains(vxS::latin(prmanNode))) return _step::next;
    const qint32 index = LOPList.addLOPFromOutNode(path, driver.nodePath);
    const QString image = LOPList[index].imageName;
    if (!image.isEmpty()) driver.imageName = image;
    return _step::next;
}

_step readLopOutput(_driver& driver, const QString& line) {
    bool noFrameVariable = false;
    driver.isExport = true;
    tell(_remark::exportName, line);
    if (replaceImageOutVars(line, false, driver.exportName, driver.activeTakeUsed, noFrameVariable))
        driver.singleFile = noFrameVariable;
    return _step::next;
}

_step readRenderer(_driver& driver, const QString& line) {
    const QString renderer = unquoted(line);
    const qint32 index = LOPList.addLOPFromOutNode(renderer, driver.nodePath);
    LOPList[index].setRenderer(renderer);
    return _step::next;
}

_step readExportToggle(_driver& driver, const QString& line) {
    driver.isExport = parenthesised(line).contains(QLatin1String("on"));
    return _step::next;
}

_step readExportMode(_driver& driver, const QString& line) {
    const QString mode = parenthesised(line);
    driver.isExport = mode.contains(QLatin1Char('1')) || mode.contains(QLatin1Char('2'));
    return _step::next;
}

_step readFilePerFrame(_driver& driver, const QString& line) {
    driver.singleFile = !line.contains(QLatin1String("on"));
    return _step::next;
}

_step readOverrideSwitch(_driver&, const QString& line) {
    overrideCameraRes = line.contains(QLatin1String("on"));
    return _step::next;
}

_step readOverrideResolution(_driver& driver, const QString& line) {
    const QString value = parenthesised(line);
    driver.resolutionWidth = integerOf(firstField(value));
    driver.resolutionHeight = integerOf(nextFields(value));
    return _step::next;
}

_step readAov(_driver& driver, const QString& line) {
    return readAovParameter(driver.aovs, line) ? _step::next : _step::unmatched;
}

_step leaveSection(_driver&, const QString&) {
    return _step::leave;
}

_step readExportFile(_driver& driver, const QString& line) {
    bool noFrameVariable = false;
    tell(_remark::exportName, line);
    const bool stored = replaceImageOutVars(line, false, driver.exportName, driver.activeTakeUsed, noFrameVariable);
    if (stored) driver.oneExportFile = noFrameVariable;
    if (stored && noFrameVariable && driver.has(_kind::vray)) driver.singleFile = true;
    return _step::next;
}

// ---- the table

struct _paramRule {
    QLatin1String name;            ///< line prefix, letter case ignored; TAB ends a whole name
    bool (*when)(const _driver&);  ///< the row counts only while this holds
    _kind kind;                    ///< driver kind the row implies
    _step (*handle)(_driver&, const QString& line);
    _parameterRole role = _parameterRole::other;
};

constexpr auto output = _parameterRole::output;
constexpr auto frameSwitch = _parameterRole::frameSwitch;
constexpr auto frameRange = _parameterRole::frameRange;
constexpr auto sizeSwitch = _parameterRole::sizeSwitch;

constexpr std::array outNodeRules{
    // first match wins
    _paramRule{QLatin1String{"trange"}, always, _kind::none, readTrange, frameSwitch},
    _paramRule{QLatin1String{"f\t"}, hasTrange, _kind::none, readFrameRange, frameRange},
    _paramRule{QLatin1String{"vm_picture\t"}, always, _kind::none, readImage, output},
    _paramRule{QLatin1String{"copoutput\t"}, always, _kind::none, readImage, output},
    _paramRule{QLatin1String{"ar_picture\t"}, always, _kind::arnold, readImage, output},
    _paramRule{QLatin1String{"RS_outputFileNamePrefix\t"}, always, _kind::redshift, readImage, output},
    _paramRule{QLatin1String{"picture\t"}, always, _kind::openGL, readImage, output},
    _paramRule{QLatin1String{"sopoutput\t"}, always, _kind::geometry, readImage, output},
    _paramRule{QLatin1String{"file\t"}, always, _kind::geometry, readImage, output},
    _paramRule{QLatin1String{"filename\t"}, always, _kind::alembic, readImage, output},
    _paramRule{QLatin1String{"SettingsOutput_img_file_path\t"}, always, _kind::vray, readImage, output},
    _paramRule{QLatin1String{"outputimage\t"}, always, _kind::lop, readImage, output},
    _paramRule{QLatin1String{"ri_display_0\t"}, always, _kind::renderman, readImage, output},
    _paramRule{QLatin1String{"ri_display\t"}, always, _kind::renderman, readImage, output},
    _paramRule{QLatin1String{"take\t"}, always, _kind::none, readTake},
    _paramRule{QLatin1String{"camera\t"}, always, _kind::none, readCamera},
    _paramRule{QLatin1String{"RS_renderCamera\t"}, always, _kind::none, readCamera},
    _paramRule{QLatin1String{"RS_outputFileFormat\t"}, always, _kind::none, readFileFormat},
    _paramRule{QLatin1String{"loppath\t"}, always, _kind::none, readLopPath},
    _paramRule{QLatin1String{"lopoutput\t"}, always, _kind::lop, readLopOutput, output},
    _paramRule{QLatin1String{"renderer\t"}, always, _kind::none, readRenderer},
    _paramRule{QLatin1String{"soho_outputmode"}, isNoneBut<_kind::mantra>, _kind::none, readExportToggle},
    _paramRule{QLatin1String{"ar_ass_export_enable\t"}, isNoneBut<_kind::arnold>, _kind::none, readExportToggle},
    _paramRule{QLatin1String{"RS_archive_enable\t"}, isNoneBut<_kind::redshift>, _kind::none, readExportToggle},
    _paramRule{QLatin1String{"rib_outputmode\t"}, isNoneBut<_kind::renderman>, _kind::none, readExportToggle},
    _paramRule{QLatin1String{"diskfile\t"}, isNoneBut<_kind::renderman>, _kind::none, readExportToggle},
    _paramRule{QLatin1String{"render_export_mode\t"}, always, _kind::none, readExportMode},
    _paramRule{QLatin1String{"fileperframe\t"}, countsFramesBySwitch, _kind::none, readFilePerFrame},
    _paramRule{QLatin1String{"override_camerares\t"}, always, _kind::none, readOverrideSwitch, sizeSwitch},
    _paramRule{QLatin1String{"RS_overrideCameraRes\t"}, always, _kind::none, readOverrideSwitch, sizeSwitch},
    _paramRule{QLatin1String{"res_override\t"}, always, _kind::none, readOverrideResolution},
    _paramRule{QLatin1String{"RS_overrideRes\t"}, always, _kind::none, readOverrideResolution},
    _paramRule{aovSeparateFile, always, _kind::none, readAov},
    _paramRule{aovCustomPrefix, always, _kind::none, readAov},
    _paramRule{aovSuffix, always, _kind::none, readAov},
    _paramRule{aovFileFormat, always, _kind::none, readAov},
    _paramRule{QLatin1String{"objectPath"}, isAlembic, _kind::none, leaveSection},  // reads Alembic, writes none
    _paramRule{QLatin1String{"missing_texture_color"}, isAlembic, _kind::none, leaveSection},
    _paramRule{QLatin1String{"soho_diskfile\t"}, hasNoExportName, _kind::none, readExportFile},
    _paramRule{QLatin1String{"ar_ass_file"}, hasNoExportName, _kind::arnold, readExportFile},
    _paramRule{QLatin1String{"RS_archive_file"}, hasNoExportName, _kind::redshift, readExportFile},
    _paramRule{QLatin1String{"render_export_filepath"}, hasNoExportName, _kind::vray, readExportFile},
};

/// No row that always counts comes before a row whose name begins with its own.
template <std::size_t Size>
constexpr bool everyRowReachable(const std::array<_paramRule, Size>& rules) {
    for (std::size_t earlier = 0; earlier < Size; ++earlier)
        for (std::size_t later = earlier + 1; later < Size; ++later)
            if (rules[earlier].when == always && beginsName(rules[later].name, rules[earlier].name)) return false;
    return true;
}

static_assert(everyRowReachable(outNodeRules), "an earlier, shorter name hides a later row");

constexpr auto outNodeNames = ruleNames(outNodeRules);
constexpr _rowsByLetter<outNodeRules.size()> outNodeRows{outNodeRules};

}  // namespace

std::span<const QLatin1String> outNodeParameters() {
    return outNodeNames;
}

_parameterRole roleOf(const QString& line) {
    for (const _paramRule& rule : outNodeRules)
        if (rule.role != _parameterRole::other && isNamed(line, rule.name)) return rule.role;
    return _parameterRole::other;
}

_step applyOutNodeRules(_driver& driver, const QString& line) {
    for (std::size_t row = outNodeRows.first(line); row < outNodeRules.size(); row = outNodeRows.next(row)) {
        const _paramRule& rule = outNodeRules[row];
        if (!isNamed(line, rule.name) || !rule.when(driver)) continue;
        if (rule.kind != _kind::none) driver.kinds.set(rule.kind);
        const _step step = rule.handle(driver, line);
        if (step != _step::unmatched) return step;
    }
    return _step::next;  // most parameters of a driver are not ours
}

}  // namespace vxP
