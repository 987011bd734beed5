// Memory of the job arrays: two blocks that stay, taken in turn, so that growing costs no fresh pages, and a pointer
// into a block that was left is found all the same. Growing past their size fails as it does when memory is short.
#include <sanitizer/asan_interface.h>

#include "fuzz/fuzzInput.h"
#include "jobs/VX_DataTypes_jobs_defines.h"

namespace {

constexpr std::size_t blockSize = 24 * vxJ::largePathRecordSize;

alignas(64) char blocks[2][blockSize];
char* inUse = nullptr;
std::size_t usedSize = 0;

void leave(char* block) {
    ASAN_POISON_MEMORY_REGION(block, blockSize);
    inUse = nullptr;
}

char* take(std::size_t size) {
    static char* next = blocks[0];
    char* const block = next;
    next = blocks[block == blocks[0] ? 1 : 0];
    ASAN_POISON_MEMORY_REGION(block, blockSize);
    ASAN_UNPOISON_MEMORY_REGION(block, size);
    inUse = block;
    usedSize = size;
    return block;
}

}  // namespace

// The linker puts these in the place of the functions after which they are called.
extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);

void* __wrap_calloc(std::size_t count, std::size_t size) {
    const bool isOther = inUse != nullptr && count == 1;  // for the jobs of a driver in a take
    if (size != vxJ::largePathRecordSize || count * size > blockSize || isOther) return __real_calloc(count, size);
    vxFuzz::expect(inUse == nullptr, "one array has many records at a time");
    return std::memset(take(count * size), 0, count * size);
}

void* __wrap_realloc(void* block, std::size_t size) {
    const bool ofRecords = size != 0 && size % vxJ::largePathRecordSize == 0;
    const auto* const bytes = static_cast<char*>(block);
    const bool isOurs =
        std::any_of(std::begin(blocks), std::end(blocks), [&](const char* own) { return own == bytes; });
    if (!isOurs || !ofRecords) return __real_realloc(block, size);
    if (block != inUse || size > blockSize) return nullptr;
    char* const old = inUse;
    const std::size_t kept = std::min(usedSize, size);
    char* const grown = take(size);
    std::memcpy(grown, old, kept);
    ASAN_POISON_MEMORY_REGION(old, blockSize);
    return grown;
}

void __wrap_free(void* block) {
    if (block != nullptr && block == inUse) return leave(inUse);
    __real_free(block);
}
}
