#include "input/sceneDevice.h"

#include <algorithm>
#include <cstring>

namespace vxP {

_sceneDevice::_sceneDevice(QIODevice& bytes) : lines(std::make_unique<_sceneLines>(bytes)) {
    // Text mode: the stream drops carriage returns.
    open(QIODevice::ReadOnly | QIODevice::Text | QIODevice::Unbuffered);
}

qint64 _sceneDevice::readData(char* data, qint64 most) {
    const std::string_view line = lines->next();
    if (line.empty()) return -1;
    const std::size_t count = std::min(static_cast<std::size_t>(most), line.size() - handedOut);
    std::memcpy(data, line.data() + handedOut, count);
    handedOut += count;
    if (handedOut == line.size()) {
        lines->take();
        handedOut = 0;
    }
    return static_cast<qint64>(count);
}

qint64 _sceneDevice::writeData(const char* /*data*/, qint64 /*count*/) {
    return -1;
}

}  // namespace vxP
