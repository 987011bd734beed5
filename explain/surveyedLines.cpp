#include "explain/surveyedLines.h"

#include <algorithm>

namespace vxE {

bool _surveyedLines::refill() {
    if (bytesOfScene == nullptr) return false;
    const qint64 count = bytesOfScene->read(block.data(), static_cast<qint64>(block.size()));
    rest = {block.data(), static_cast<std::size_t>(std::max<qint64>(count, 0))};
    return !rest.empty();
}

/// The next line, where it does not end in this block.
bool _surveyedLines::nextOverBlocks() {
    joined.clear();
    length = 0;
    for (bool isEnded = false; !isEnded && (!rest.empty() || refill());) {
        const auto end = rest.find('\n');
        isEnded = end != rest.npos;
        joined.append(rest.substr(0, end));
        length += static_cast<qint64>(isEnded ? end + 1 : rest.size());
        rest.remove_prefix(isEnded ? end + 1 : rest.size());
        if (joined.size() > 2 * longestEnd) joined.erase(longestEnd, joined.size() - 2 * longestEnd);
    }
    line = joined;
    return length > 0;
}

}  // namespace vxE
