#include "plugin/sceneDevice.h"

#include <QFileInfo>
#include <algorithm>
#include <cstring>

namespace vxP {

namespace {

constexpr int blockBytes = 256 * 1024;

}  // namespace

bool openScene(QFile& file) {
    return QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

_sceneDevice::_sceneDevice(QIODevice& bytes) : source(bytes) {
    // Text mode: the stream drops carriage returns.
    open(QIODevice::ReadOnly | QIODevice::Text | QIODevice::Unbuffered);
    refill();
}

void _sceneDevice::refill() {
    block.resize(blockBytes);
    const qint64 count = source.read(block.data(), blockBytes);
    failed = count < 0;
    ended = count <= 0;
    block.resize(static_cast<int>(std::max<qint64>(count, 0)));
    position = 0;
}

qint64 _sceneDevice::readData(char* data, qint64 most) {
    const qint64 room = std::min<qint64>(most, block.size() - position);
    if (room <= 0) return atEnd() ? -1 : 0;
    const char* const start = block.constData() + position;
    const void* const lineEnd = std::memchr(start, '\n', static_cast<std::size_t>(room));
    const qint64 count = lineEnd == nullptr ? room : static_cast<const char*>(lineEnd) - start + 1;
    std::memcpy(data, start, static_cast<std::size_t>(count));
    position += count;
    if (position == block.size() && !ended) refill();
    return count;
}

qint64 _sceneDevice::writeData(const char* /*data*/, qint64 /*count*/) {
    return -1;
}

}  // namespace vxP
