#include "tests/plugin/scarceMemory.h"

#include <dlfcn.h>
#include <execinfo.h>
#include <malloc.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "shared/vxExport.h"

// The allocator below this one.
#ifdef __SANITIZE_ADDRESS__
extern "C" void* __interceptor_malloc(std::size_t);
extern "C" void* __interceptor_calloc(std::size_t, std::size_t);
extern "C" void* __interceptor_realloc(void*, std::size_t);
extern "C" void __interceptor_free(void*);
constexpr auto realMalloc = __interceptor_malloc;
constexpr auto realCalloc = __interceptor_calloc;
constexpr auto realRealloc = __interceptor_realloc;
constexpr auto realFree = __interceptor_free;
#else
extern "C" void* __libc_malloc(std::size_t);
extern "C" void* __libc_calloc(std::size_t, std::size_t);
extern "C" void* __libc_realloc(void*, std::size_t);
extern "C" void __libc_free(void*);
constexpr auto realMalloc = __libc_malloc;
constexpr auto realCalloc = __libc_calloc;
constexpr auto realRealloc = __libc_realloc;
constexpr auto realFree = __libc_free;
#endif

namespace {

constexpr long unlimited = std::numeric_limits<long>::max();

std::atomic<long> blocks{0};
std::atomic<long> bytes{0};

// One thread at a time sets and meets a shortage.
long mostBytes = unlimited;
long untilFailure = 0;  // 1: the next one fails; 0: none does
bool isLasting = false;
bool hasFailed = false;

bool isInTextStream() {
    std::array<void*, 40> calls;
    const int count = backtrace(calls.data(), static_cast<int>(calls.size()));
    for (int i = 0; i < count; ++i) {
        Dl_info place;
        const bool isNamed = dladdr(calls[static_cast<std::size_t>(i)], &place) != 0 && place.dli_sname != nullptr;
        if (isNamed && std::strstr(place.dli_sname, "QTextStreamC") != nullptr) return true;
    }
    return false;
}

bool isItsTurn() {
    if (untilFailure == 0 || --untilFailure > 0) return false;
    untilFailure = isLasting ? 1 : 0;
    return !isInTextStream();
}

/// @param size  bytes more than before
bool fails(std::size_t size) {
    if (!isItsTurn() && bytes + static_cast<long>(size) <= mostBytes) return false;
    hasFailed = true;
    errno = ENOMEM;
    return true;
}

void count(void* block, int change) {
    if (block == nullptr) return;
    blocks += change;
    bytes += change * static_cast<long>(malloc_usable_size(block));
}

void* counted(void* block) {
    count(block, 1);
    return block;
}

void* orThrow(void* block) {
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

}  // namespace

extern "C" {

VX_EXPORT void* malloc(std::size_t size) noexcept {
    return fails(size) ? nullptr : counted(realMalloc(size));
}

VX_EXPORT void* calloc(std::size_t number, std::size_t size) noexcept {
    return fails(number * size) ? nullptr : counted(realCalloc(number, size));
}

VX_EXPORT void* realloc(void* block, std::size_t size) noexcept {
    if (fails(size - malloc_usable_size(block))) return nullptr;
    count(block, -1);
    return counted(realRealloc(block, size));
}

VX_EXPORT void free(void* block) noexcept {
    count(block, -1);
    realFree(block);
}

}  // extern "C"

// The sanitizer's own would not come by here.
void* operator new(std::size_t size) {
    return orThrow(std::malloc(size));
}
void* operator new[](std::size_t size) {
    return orThrow(std::malloc(size));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

namespace vxTest {

void failAllocation(long number, bool lasting) {
    isInTextStream();  // its own first call allocates
    hasFailed = false;
    isLasting = lasting;
    untilFailure = number;
}

void limitMemory(long more) {
    hasFailed = false;
    mostBytes = bytes + more;
}

bool endScarcity() {
    untilFailure = 0;
    mostBytes = unlimited;
    return hasFailed;
}

long blocksInUse() {
    return blocks;
}

}  // namespace vxTest
