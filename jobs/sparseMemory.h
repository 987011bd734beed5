// Memory of which most is zero. The kernel gives a page only when something is written to it: a record of 56 pages that
// holds a few short texts takes six, as long as nobody writes zeros to the others.
#pragma once

#include <cstddef>
#include <vector>

namespace vxJ {

/// Makes all bytes zero. Whole pages of the process's own memory go back to the kernel instead of being written.
void clearPages(void* memory, std::size_t bytes);

/// Some of the bytes of a piece of memory, counted from its start.
struct _stretch {
    std::size_t begin;
    std::size_t end;
};

/// Which pages of this process's memory have ever been written. Reading one of the others would show zeros, at the
/// price of a page fault. It must not outlive a fork: the child has pages of its own.
class _writtenPages {
 public:
    _writtenPages();
    ~_writtenPages();
    _writtenPages(const _writtenPages&) = delete;
    _writtenPages& operator=(const _writtenPages&) = delete;

    /// The stretches that may hold anything but zeros, in their order. All of the memory where the kernel does not
    /// tell.
    /// @param memory  from malloc, so that pages that were never written are zero
    std::vector<_stretch> in(const void* memory, std::size_t bytes) const;

 private:
    int pageMap;  ///< descriptor, -1: the kernel does not tell
};

}  // namespace vxJ
