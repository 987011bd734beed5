#include <algorithm>
#include <cstring>
#include <iterator>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "jobs/recordDefaults.h"
#include "jobs/sparseMemory.h"

namespace vxJ {

namespace {

/// What both forms clear alike: zero bytes, the head words as they were, the defaults.
template <class Record>
void clearToDefaults(Record& record) {
    quint16 headWords[std::size(record.structureIDs)];
    std::memcpy(headWords, record.structureIDs, sizeof headWords);
    clearPages(&record, sizeof record);
    std::memcpy(record.structureIDs, headWords, sizeof headWords);
    setDefaults(record);
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
