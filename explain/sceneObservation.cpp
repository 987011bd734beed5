#include "explain/sceneObservation.h"

#include <algorithm>

#include "drivers/outNodeRules.h"
#include "explain/explanation.h"
#include "explain/outcomes.h"
#include "explain/sceneSurvey.h"

namespace vxE {

namespace {

/// Remarks about lines of one section, and computed values, that are kept: no driver has as many output names.
constexpr int mostLinesRemarkedOn = 100;

/// Bytes that a section takes here, in the survey and as an entry of the explanation. A remark on a line becomes one of
/// the entry's details.
qint64 bytesOf(const _observedSection& section) {
    qint64 sum = static_cast<qint64>(sizeof section + sizeof(_surveyedSection) + sizeof(_explainedSection)) +
                 bytesPerEntry + vxP::bytesOf(section.node);
    for (const _observedRemark& remark : section.remarks)
        sum += static_cast<qint64>(sizeof remark + sizeof(QString)) + 2 * vxP::bytesOf(remark.line) +
               vxP::bytesOf(remark.detail);
    for (const vxP::_resolvedValue& value : section.resolved)
        sum += static_cast<qint64>(sizeof value) + vxP::bytesOf(value.node) + vxP::bytesOf(value.parameter) +
               vxP::bytesOf(value.expression) + vxP::bytesOf(value.stored) + vxP::bytesOf(value.value) +
               vxP::bytesOf(value.reason);
    return sum;
}

/// `trange<TAB>[ 0<TAB>locks=0 ]<TAB>(<TAB>"off"<TAB>)`
bool isSwitchedOff(const QString& line) {
    return parameterValue(line) == QLatin1String("off");
}

/// A node that the driver's reader took because of its name, and that has nothing else of a driver.
bool isOnlyCalledLikeADriver(const _observedSection& section) {
    const auto tellsMore = [](const _observedRemark& remark) { return remark.what != vxP::_remark::noImageName; };
    return section.reader == vxP::_sectionReader::driver && !section.hasFrames && !section.madeJobs() &&
           std::none_of(section.remarks.begin(), section.remarks.end(), tellsMore);
}

}  // namespace

const _observedRemark* _observedSection::find(vxP::_remark what) const {
    const auto found = std::find_if(remarks.begin(), remarks.end(),
                                    [what](const _observedRemark& remark) { return remark.what == what; });
    return found == remarks.end() ? nullptr : &*found;
}

void _sceneObservation::sectionBegins(qint64 byte, qint32 jobs) {
    section = {};
    section.byte = byte;
    lastByte = std::max(lastByte, byte);
    section.jobsBefore = section.jobsAfter = jobsOfSections = jobs;
    linesRemarkedOn = 0;
    isInSection = true;
}

void _sceneObservation::readerTakes(vxP::_sectionReader reader, const QString& nodePath) {
    section.reader = reader;
    section.node = shortened(nodePath);
}

void _sceneObservation::parameter(const QString& line) {
    switch (vxP::roleOf(line)) {
        case vxP::_parameterRole::frameSwitch:
            section.isOfCurrentFrame = isSwitchedOff(line);
            section.hasFrames = true;
            break;
        case vxP::_parameterRole::frameRange:
            section.hasFrames = true;
            break;
        case vxP::_parameterRole::sizeSwitch:
            section.isSizeSwitchedOff = isSwitchedOff(line);
            break;
        case vxP::_parameterRole::output:
        case vxP::_parameterRole::other:
            break;
    }
}

void _sceneObservation::remark(vxP::_remark what, const QString& line, const QString& detail) {
    if (what == vxP::_remark::frameRangeStored) hasFrameRange = true;
    if (!isInSection) return;
    if (!line.isEmpty() && ++linesRemarkedOn > mostLinesRemarkedOn)
        ++remarksLeftOut;
    else
        section.remarks.append({what, shortened(line), shortened(detail)});
}

void _sceneObservation::resolved(const vxP::_resolvedValue& value) {
    if (!isInSection) return;
    if (section.resolved.size() >= mostLinesRemarkedOn)
        ++remarksLeftOut;
    else
        section.resolved.append({shortened(value.node), shortened(value.parameter), shortened(value.expression),
                                 shortened(value.stored), shortened(value.value), shortened(value.reason)});
}

void _sceneObservation::sectionEnds(qint32 jobs) {
    section.jobsAfter = jobsOfSections = jobs;
    section.isEnded = true;
    keepSection();
}

void _sceneObservation::loadEnds() {
    if (isInSection) keepSection();
    std::stable_sort(sections.begin(), sections.end(), [](const auto& a, const auto& b) { return a.byte < b.byte; });
}

void _sceneObservation::keepSection() {
    isInSection = false;
    const bool hasRoom = bytes.rest() > bytesForAnySection || !isOnlyCalledLikeADriver(section);
    if (hasRoom && bytes.take(bytesOf(section)))
        sections.append(section);
    else
        ++sectionsLeftOut;
}

}  // namespace vxE
