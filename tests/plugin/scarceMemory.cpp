#include "tests/plugin/scarceMemory.h"

#include <dlfcn.h>
#include <malloc.h>
#include <unwind.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "shared/vxExport.h"

// The allocators below this one: the sanitizer's where there is one, else the system's.
extern "C" {
__attribute__((weak)) void* __interceptor_malloc(std::size_t);
__attribute__((weak)) void* __interceptor_calloc(std::size_t, std::size_t);
__attribute__((weak)) void* __interceptor_realloc(void*, std::size_t);
__attribute__((weak)) void __interceptor_free(void*);
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void __libc_free(void*);
}

namespace {

constexpr long unlimited = std::numeric_limits<long>::max();

// In use; those from before the first question count as none.
std::atomic<bool> isCounting{false};
std::atomic<long> blocks{0};
std::atomic<long> bytes{0};

// One thread at a time sets and meets a shortage.
long mostBytes = unlimited;
long untilFailure = 0;  // 1: the next one fails; 0: none does
bool isLasting = false;
bool hasFailed = false;

_Unwind_Reason_Code lookForTextStream(_Unwind_Context* call, void* isFound) {
    Dl_info place;
    const bool isKnown = dladdr(reinterpret_cast<void*>(_Unwind_GetIP(call)), &place) != 0;
    if (!isKnown || place.dli_sname == nullptr || std::strstr(place.dli_sname, "QTextStreamC") == nullptr)
        return _URC_NO_REASON;
    *static_cast<bool*>(isFound) = true;
    return _URC_END_OF_STACK;
}

/// True when a constructor of the text stream is among the callers.
bool isInTextStream() {
    bool isFound = false;
    _Unwind_Backtrace(lookForTextStream, &isFound);
    return isFound;
}

bool isItsTurn() {
    if (untilFailure == 0 || --untilFailure > 0) return false;
    untilFailure = isLasting ? 1 : 0;
    return !isInTextStream();
}

/// @param more  bytes that are asked for
bool fails(long more) {
    if (!isItsTurn() && bytes + more <= mostBytes) return false;
    hasFailed = true;
    errno = ENOMEM;
    return true;
}

long sizeOf(void* block) {
    return isCounting ? static_cast<long>(malloc_usable_size(block)) : 0;
}

void count(void* block, int change) {
    if (block == nullptr || !isCounting) return;
    blocks += change;
    bytes += change * sizeOf(block);
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
    if (fails(static_cast<long>(size))) return nullptr;
    return counted(__interceptor_malloc != nullptr ? __interceptor_malloc(size) : __libc_malloc(size));
}

VX_EXPORT void* calloc(std::size_t number, std::size_t size) noexcept {
    if (fails(static_cast<long>(number * size))) return nullptr;
    return counted(__interceptor_calloc != nullptr ? __interceptor_calloc(number, size) : __libc_calloc(number, size));
}

VX_EXPORT void* realloc(void* block, std::size_t size) noexcept {
    if (fails(static_cast<long>(size) - sizeOf(block))) return nullptr;
    count(block, -1);
    return counted(__interceptor_realloc != nullptr ? __interceptor_realloc(block, size) : __libc_realloc(block, size));
}

VX_EXPORT void free(void* block) noexcept {
    count(block, -1);
    if (__interceptor_free != nullptr)
        __interceptor_free(block);
    else
        __libc_free(block);
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
    hasFailed = false;
    isLasting = lasting;
    untilFailure = number;
}

void limitMemory(long more) {
    hasFailed = false;
    isCounting = true;
    mostBytes = bytes + more;
}

bool endScarcity() {
    untilFailure = 0;
    mostBytes = unlimited;
    return hasFailed;
}

long blocksInUse() {
    isCounting = true;
    return blocks;
}

}  // namespace vxTest
