#include "jobs/sparseMemory.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vxJ {

namespace {

constexpr std::size_t leastReturned = 65536;  ///< bytes: fewer are written sooner than given back and taken again

std::size_t pageSize() {
    static const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

/// Bytes from the start of its page.
std::size_t intoPage(const void* memory) {
    return reinterpret_cast<std::uintptr_t>(memory) % pageSize();
}

/// True when the kernel has made whole pages zero. It says of memory that may not be dropped in this way, as that of
/// files or what is shared with others, that it cannot be freed; such memory is asked for one page alone.
bool returnPages(char* pages, std::size_t bytes) {
    return bytes >= leastReturned && madvise(pages, pageSize(), MADV_FREE) == 0 &&
           madvise(pages, bytes, MADV_DONTNEED) == 0;
}

// The kernel's table of a process's pages: 64 bits for each, see pagemap in the kernel's documentation.
using _pageEntry = std::uint64_t;
constexpr _pageEntry isPresent = _pageEntry{1} << 63;
constexpr _pageEntry isSwapped = _pageEntry{1} << 62;

std::vector<_pageEntry> entriesOf(int pageMap, std::uintptr_t firstPage, std::size_t pages) {
    std::vector<_pageEntry> entries(pages);
    const std::size_t bytes = pages * sizeof(_pageEntry);
    const auto place = static_cast<off_t>(firstPage * sizeof(_pageEntry));
    const ssize_t got = pageMap < 0 ? -1 : pread(pageMap, entries.data(), bytes, place);
    if (got != static_cast<ssize_t>(bytes)) entries.assign(pages, isPresent);
    return entries;
}

}  // namespace

void clearPages(void* memory, std::size_t bytes) {
    auto* const begin = static_cast<char*>(memory);
    const std::size_t head = std::min(bytes, (pageSize() - intoPage(begin)) % pageSize());
    const std::size_t whole = (bytes - head) / pageSize() * pageSize();
    const bool areReturned = returnPages(begin + head, whole);
    std::memset(begin, 0, areReturned ? head : bytes);
    if (areReturned) std::memset(begin + head + whole, 0, bytes - head - whole);
}

_writtenPages::_writtenPages() : pageMap(open("/proc/self/pagemap", O_RDONLY | O_CLOEXEC)) {
}

_writtenPages::~_writtenPages() {
    if (pageMap >= 0) close(pageMap);
}

std::vector<_stretch> _writtenPages::in(const void* memory, std::size_t bytes) const {
    const std::size_t skipped = intoPage(memory);
    const std::size_t pages = (skipped + bytes + pageSize() - 1) / pageSize();
    const auto entries = entriesOf(pageMap, reinterpret_cast<std::uintptr_t>(memory) / pageSize(), pages);
    std::vector<_stretch> stretches;
    for (std::size_t page = 0; page < pages; ++page) {
        if ((entries[page] & (isPresent | isSwapped)) == 0) continue;
        const std::size_t begin = std::max(page * pageSize(), skipped) - skipped;
        const std::size_t end = std::min((page + 1) * pageSize() - skipped, bytes);
        if (!stretches.empty() && stretches.back().end == begin)
            stretches.back().end = end;
        else
            stretches.push_back({begin, end});
    }
    return stretches;
}

}  // namespace vxJ
