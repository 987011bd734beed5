#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

namespace {

constexpr std::size_t manyRecords = 160;       ///< some 36 MB: such a block has a mapping of its own
constexpr std::uintptr_t smallestPage = 4096;  ///< bytes

/// Asks for large pages: clearing thousands of records one small page after the other takes three times as long. The
/// advice is for the whole mapping, as one with two kinds of pages cannot be grown in place.
void askForLargePages(void* block, std::size_t bytes) {
    const std::uintptr_t intoPage = reinterpret_cast<std::uintptr_t>(block) % smallestPage;
    madvise(static_cast<char*>(block) - intoPage, bytes + intoPage, MADV_HUGEPAGE);
}

/// A larger block with the old records in front, or a zero-filled first one; null when memory is short.
_JobBasics_largePath* grownBlock(_JobBasics_largePath* old, std::size_t records) {
    void* const block = old != nullptr ? std::realloc(static_cast<void*>(old), records * largePathRecordSize)
                                       : std::calloc(records, largePathRecordSize);
    if (block != nullptr && records >= manyRecords) askForLargePages(block, records * largePathRecordSize);
    return static_cast<_JobBasics_largePath*>(block);
}

}  // namespace

_JobBasicsArray::_JobBasicsArray()
    : structureVersion(vxJ::structureVersion),
      structureMinor(vxJ::structureMinor),
      reservedMessage{},
      recordSize(largePathRecordSize),
      count(0),
      allocated(0),
      jobs(nullptr) {
}

_JobBasicsArray::~_JobBasicsArray() {
    std::free(jobs);
}

void _JobBasicsArray::clear() {
    count = 0;
    message.clear();
}

bool _JobBasicsArray::setArraySize(int n) {
    if (n <= std::max(allocated, 0)) return true;
    if (n > jobArrayCapacity) return false;
    const bool blockHoldsRecords = allocated > 0 && jobs != nullptr;
    _JobBasics_largePath* const block = grownBlock(blockHoldsRecords ? jobs : nullptr, static_cast<std::size_t>(n));
    if (block == nullptr) {
        if (!blockHoldsRecords) jobs = nullptr;
        return false;
    }
    jobs = block;
    for (int i = blockHoldsRecords ? allocated : 0; i < n; ++i) jobs[i].initialize();
    allocated = n;
    return true;
}

_JobBasics_largePath* _JobBasicsArray::at(const int& i) const {
    return jobs != nullptr && i >= 0 && i < allocated ? jobs + i : nullptr;
}

bool _JobBasicsArray::isVersionSupported(quint8 minor) const {
    return structureVersion == vxJ::structureVersion && structureMinor >= minor && recordSize == largePathRecordSize;
}

bool _JobBasicsArray::getNewJob(_JobBasics_largePath*& job) {
    const qint32 index = count;
    const bool isUsedAgain = index < allocated;
    count = static_cast<qint32>(static_cast<quint32>(count) + 1U);  // the host's number may be any
    setArraySize(count);
    job = at(index);
    if (job != nullptr && isUsedAgain) job->vxClearBasics();  // a record just made is clear
    return job != nullptr;
}

}  // namespace vxJ
