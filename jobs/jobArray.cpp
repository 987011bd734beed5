#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "jobs/recordDefaults.h"
#include "jobs/sparseMemory.h"

namespace vxJ {

namespace {

constexpr std::size_t ownMapping = std::size_t{36} << 20;  ///< bytes: such a block always has a mapping of its own
constexpr std::size_t allocatorsWord = sizeof(void*);      ///< of its own, in front of a block and behind it

std::size_t intoPage(const void* block) {
    return reinterpret_cast<std::uintptr_t>(block) % static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

/// True for a block with a mapping of its own, by the place where such blocks begin: the kernel grows it without a
/// copy, and its pages may go back to the kernel.
bool hasOwnMapping(const void* block) {
    return intoPage(block) == 2 * allocatorsWord;
}

/// Large pages would take memory for hundreds of small ones that stay zero. The advice is for the whole mapping, as one
/// with two kinds of pages cannot be grown in place.
void askForSmallPages(void* block, std::size_t bytes) {
    madvise(static_cast<char*>(block) - intoPage(block), intoPage(block) + bytes + allocatorsWord, MADV_NOHUGEPAGE);
}

/// Zero bytes in a mapping of their own, whatever the process has set its allocator to; null when memory is short.
void* newBlock(std::size_t bytes) {
    if (bytes >= ownMapping) return std::calloc(bytes, 1);
    void* const large = std::calloc(ownMapping, 1);
    if (large == nullptr) return std::calloc(bytes, 1);
    askForSmallPages(large, ownMapping);
    void* const block = std::realloc(large, bytes);
    return block != nullptr ? block : large;
}

/// A larger block with the old records in front and zeros behind them; null when memory is short.
_JobBasics_largePath* grownBlock(_JobBasics_largePath* old, std::size_t oldRecords, std::size_t records) {
    const std::size_t bytes = records * largePathRecordSize;
    const std::size_t oldBytes = oldRecords * largePathRecordSize;
    void* const block = old != nullptr ? std::realloc(static_cast<void*>(old), bytes) : newBlock(bytes);
    if (block == nullptr) return nullptr;
    if (bytes >= ownMapping) askForSmallPages(block, bytes);
    char* const behindOld = static_cast<char*>(block) + oldBytes;
    if (old != nullptr && hasOwnMapping(block)) clearPages(behindOld, bytes - oldBytes);
    if (old != nullptr && !hasOwnMapping(block)) std::memset(behindOld, 0, bytes - oldBytes);
    return static_cast<_JobBasics_largePath*>(block);
}

/// @param record  all zero
void initializeZeros(_JobBasics_largePath& record) {
    record.setStructureIDs();
    setDefaults(record);
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
    const int before = blockHoldsRecords ? allocated : 0;
    _JobBasics_largePath* const block =
        grownBlock(blockHoldsRecords ? jobs : nullptr, static_cast<std::size_t>(before), static_cast<std::size_t>(n));
    if (block == nullptr) {
        if (!blockHoldsRecords) jobs = nullptr;
        return false;
    }
    jobs = block;
    for (int i = before; i < n; ++i) initializeZeros(jobs[i]);
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
