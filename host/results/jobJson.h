// A job record as a JSON object with the record's field names.
#pragma once

#include <QJsonObject>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxH {

/// All named fields of the record, texts untouched. `channels` lists the slots in use ({slot, name, extension}, slot
/// from 0), `customData` the entries ({name, value}), `waitForPreIDs` the numbers in use. `jobID` is a decimal text:
/// it has 64 bits, a JSON number 53. The password hash is never shown.
QJsonObject jobToJson(const vxJ::_JobBasics_largePath& job);

}  // namespace vxH
