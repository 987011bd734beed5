#include "scan/sceneFacts.h"

#include "jobs/VX_DataTypes_jobs_defines.h"
#include "scan/scanBudget.h"

namespace vxP {

void _takes::add(const QString& name) {
    ++lines;
    if (names.size() >= vxJ::jobArrayCapacity || known.count(name) > 0) return;
    keepMemory(bytesOf(name));
    names.append(name);
    known.insert(name);
}

}  // namespace vxP
