#include <algorithm>
#include <cstring>
#include <iterator>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

namespace {

/// What both forms clear alike: zero bytes, the head words as they were, the defaults.
template <class Record>
void clearToDefaults(Record& record) {
    quint16 headWords[std::size(record.structureIDs)];
    std::memcpy(headWords, record.structureIDs, sizeof headWords);
    std::memset(static_cast<void*>(&record), 0, sizeof record);
    std::memcpy(record.structureIDs, headWords, sizeof headWords);
    record.jobKind = 2;
    record.imagePadding = 4;
    record.sceneSettings.seqStart = 1.0;
    record.sceneSettings.seqEnd = 1.0;
    record.sceneSettings.seqStep = 1;
}

}  // namespace

void _JobBasics_noSettings_noPaths::setStructureIDs() {
    std::fill(std::begin(structureIDs), std::end(structureIDs), quint16{0});
    structureIDs[0] = structureVersion;
    structureIDs[1] = structureMinor;
}

void _JobBasics_noSettings_noPaths::addWaitForPreID(quint8 id) {
    setWaitForPreID(waitForPreIDCount, id);
}

void _JobBasics_noSettings_noPaths::setWaitForPreID(int index, quint8 id) {
    if (index < 0 || index >= waitForPreIDCapacity) return;
    waitForPreIDs[index] = id;
    waitForPreIDCount = std::max(waitForPreIDCount, static_cast<quint8>(index + 1));
}

bool _JobBasics::vxClearBasics() {
    clearToDefaults(*this);
    for (const int index : {1, 2, 3}) sceneSettings.unnamedTexts[index] = u"<auto>";
    return false;
}

void _JobBasics::initialize() {
    setStructureIDs();
    vxClearBasics();
}

bool _JobBasics_largePath::vxClearBasics() {
    clearToDefaults(*this);
    return true;
}

void _JobBasics_largePath::initialize() {
    setStructureIDs();
    vxClearBasics();
}

}  // namespace vxJ
