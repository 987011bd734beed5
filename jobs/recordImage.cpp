#include "jobs/recordImage.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "jobs/recordDefaults.h"

namespace vxJ {

namespace {

constexpr std::size_t pieceSize = 64;  ///< bytes that are looked at together
constexpr char zeros[pieceSize] = {};

/// The first slot that begins at `place` of the channels, in bytes, or behind it.
int slotAt(std::size_t place) {
    return static_cast<int>((place + sizeof(_channelSlot) - 1) / sizeof(_channelSlot));
}

}  // namespace

_recordImage::_recordImage(const _JobBasics_largePath& record, const _writtenPages& pages) {
    const auto* const bytes = reinterpret_cast<const char*>(&record);
    for (const _stretch& stretch : pages.in(bytes, sizeof record)) {
        for (std::size_t begin = stretch.begin; begin < stretch.end; begin += pieceSize) {
            const std::size_t end = std::min(begin + pieceSize, stretch.end);
            if (std::memcmp(bytes + begin, zeros, end - begin) == 0) continue;
            if (!pieces.empty() && pieces.back().end == begin)
                pieces.back().end = end;
            else
                pieces.push_back({begin, end});
        }
    }
}

void _recordImage::copy(const _JobBasics_largePath& record, _JobBasics_largePath& cleared) const {
    const auto* const source = reinterpret_cast<const char*>(&record);
    auto* const target = reinterpret_cast<char*>(&cleared);
    copyHeadAndDefaults(record, cleared);
    for (const auto& [begin, end] : pieces) std::memcpy(target + begin, source + begin, end - begin);
}

int channelsEnd(const _JobBasics_largePath& record, const _writtenPages& pages) {
    const auto stretches = pages.in(record.channels, sizeof record.channels);
    for (auto stretch = stretches.rbegin(); stretch != stretches.rend(); ++stretch)
        for (int slot = slotAt(stretch->end); slot > slotAt(stretch->begin); --slot)
            if (!record.channels[slot - 1].fileName.isEmpty()) return slot;
    return 0;
}

}  // namespace vxJ
