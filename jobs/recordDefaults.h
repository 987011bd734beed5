// What a new record holds that is not zero.
#pragma once

#include <cstring>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

/// Writes the defaults of both forms of a job to a record that is zero but for its head words.
template <class Record>
void setDefaults(Record& record) {
    record.jobKind = 2;
    record.imagePadding = 4;
    record.sceneSettings.seqStart = 1.0;
    record.sceneSettings.seqEnd = 1.0;
    record.sceneSettings.seqStep = 1;
}

/// Copies the head words and what `setDefaults` writes.
template <class Record>
void copyHeadAndDefaults(const Record& source, Record& target) {
    std::memcpy(target.structureIDs, source.structureIDs, sizeof target.structureIDs);
    target.jobKind = source.jobKind;
    target.imagePadding = source.imagePadding;
    target.sceneSettings.seqStart = source.sceneSettings.seqStart;
    target.sceneSettings.seqEnd = source.sceneSettings.seqEnd;
    target.sceneSettings.seqStep = source.sceneSettings.seqStep;
}

}  // namespace vxJ
