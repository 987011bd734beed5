#include "explain/sceneObservation.h"

#include <algorithm>

#include "drivers/outNodeRules.h"

namespace vxE {

namespace {

/// Characters of a parameter that are kept: enough for any name that a record can hold.
constexpr int longestParameter = 2000;

}  // namespace

const _observedRemark* _observedSection::find(vxP::_remark what) const {
    const auto found = std::find_if(remarks.begin(), remarks.end(),
                                    [what](const _observedRemark& remark) { return remark.what == what; });
    return found == remarks.end() ? nullptr : &*found;
}

void _sceneObservation::sectionBegins(qint64 byte, qint32 jobs) {
    _observedSection section;
    section.byte = byte;
    section.jobsBefore = section.jobsAfter = jobs;
    sections.append(section);
    parameterNow.clear();
    isInSection = true;
}

void _sceneObservation::readerTakes(vxP::_sectionReader reader, const QString& nodePath) {
    sections.last().reader = reader;
    sections.last().node = nodePath;
}

void _sceneObservation::parameter(const QString& line) {
    parameterNow = line.left(longestParameter);
    if (vxP::roleOf(line) == vxP::_parameterRole::frameRange) sections.last().frameRange.append(parameterNow);
}

void _sceneObservation::remark(vxP::_remark what, const QString& detail) {
    if (what == vxP::_remark::frameRangeStored) frameRangeStored = true;
    if (isInSection) sections.last().remarks.append({what, detail.left(longestParameter), parameterNow});
}

void _sceneObservation::sectionEnds(qint32 jobs) {
    sections.last().jobsAfter = jobs;
    sections.last().isEnded = true;
    isInSection = false;
}

}  // namespace vxE
