// Places in a scene's bytes where a line that matters to the scan may be: found without looking at single lines.
#pragma once

#include <cstddef>
#include <string_view>

namespace vxP {

/// Bytes after a place that must be there to tell whether it is a candidate.
constexpr std::size_t candidateLookAhead = 32;

/// First place at or after `from` that belongs to one of the texts by which `classifyLine` knows a line, or may do so
/// once the carriage returns are gone. Places less than `candidateLookAhead` bytes before the end are only looked at
/// when `complete` is set: what follows may tell more.
/// @param bytes     begins with a line
/// @param complete  the scene ends after `bytes`
/// @return position, or `bytes.size()` when there is none
std::size_t findCandidate(std::string_view bytes, std::size_t from, bool complete);

/// How the bytes are searched; `automatic` is the fastest one that the processor has. The others are for tests.
enum class _searchPath { automatic, avx2, portable };
void chooseSearchPath(_searchPath path);
/// What the present one is called: "AVX2".
const char* searchPathName();

}  // namespace vxP
