#include "host/batch/pathList.h"

namespace vxH {

void _pathList::add(const char* block, std::size_t count) {
    bytes.erase(0, position);
    position = 0;
    bytes.append(block, count);
}

void _pathList::end() {
    isEnded = true;
}

bool _pathList::next(std::string& path, QString& problem) {
    findSeparator();
    do {
        if (!cut(path)) return false;
    } while (path.empty() && !isTooLong);
    if (isTooLong) problem = QStringLiteral("a path in the list is longer than %1 bytes").arg(longestPath);
    if (path.find('\0') != std::string::npos)
        problem = QStringLiteral("a NUL among the lines of the list: separate paths by one or the other");
    isTooLong = false;
    return true;
}

void _pathList::findSeparator() {
    if (isSeparatorKnown) return;
    const bool hasNul = bytes.find('\0') != std::string::npos;
    separator = hasNul ? '\0' : '\n';
    isSeparatorKnown = hasNul || bytes.find('\n') != std::string::npos;
}

/// Cuts off what comes before the next separator. @return false when there is none yet
bool _pathList::cut(std::string& path) {
    const auto found = bytes.find(separator, position);
    const auto end = found == std::string::npos ? bytes.size() : found;
    if (end - position > longestPath) {
        isTooLong = true;
        position = end;
    }
    if (found == std::string::npos && !(isEnded && (position < end || isTooLong))) return false;
    path = bytes.substr(position, end - position);
    position = found == std::string::npos ? end : end + 1;
    if (separator == '\n' && !path.empty() && path.back() == '\r') path.pop_back();
    return true;
}

}  // namespace vxH
