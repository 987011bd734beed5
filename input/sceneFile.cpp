#include "input/sceneFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace vxP {

namespace {

bool isRegular(const QByteArray& path) {
    struct stat status {};
    return ::stat(path.constData(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Size of an open regular file; -1 for anything else.
qint64 sizeOf(const _fileHandle& handle) {
    struct stat status {};
    return ::fstat(handle.number, &status) == 0 && S_ISREG(status.st_mode) ? qint64{status.st_size} : -1;
}

int openForReading(const QByteArray& path, int flags) {
    return static_cast<int>(TEMP_FAILURE_RETRY(::open(path.constData(), O_RDONLY | O_CLOEXEC | flags)));
}

/// Devices may act on being opened, so the name is looked at first; a pipe that takes its place after that look must
/// not hold the caller. A file that another program holds a lease on is worth waiting for.
int openWithoutHanging(const QByteArray& path) {
    if (!isRegular(path)) return -1;
    const int number = openForReading(path, O_NONBLOCK);
    return number < 0 && errno == EWOULDBLOCK ? openForReading(path, 0) : number;
}

}  // namespace

_fileHandle::~_fileHandle() {
    if (number >= 0) ::close(number);
}

_sceneFile::_sceneFile(const QString& path) {
    if (!path.isValidUtf16() || path.contains(QChar(QChar::Null))) return;
    handle.number = openWithoutHanging(path.toUtf8());
    end = sizeOf(handle);
    bytesAtFirst = std::max<qint64>(end, 0);
    if (end >= 0) open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 _sceneFile::readData(char* data, qint64 most) {
    if (position >= end && !isEndFinal) {
        end = sizeOf(handle);
        isEndFinal = true;
        if (end < 0) return -1;
    }
    const qint64 wanted = std::min(most, end - position);
    if (wanted <= 0) return 0;
    const qint64 count = TEMP_FAILURE_RETRY(::read(handle.number, data, static_cast<std::size_t>(wanted)));
    position += std::max<qint64>(count, 0);
    return count;
}

qint64 _sceneFile::readAt(qint64 offset, char* data, qint64 most) const {
    qint64 filled = 0;
    while (filled < most) {
        const auto wanted = static_cast<std::size_t>(most - filled);
        const qint64 count = TEMP_FAILURE_RETRY(::pread(handle.number, data + filled, wanted, offset + filled));
        if (count < 0) return -1;
        if (count == 0) break;
        filled += count;
    }
    return filled;
}

qint64 _sceneFile::writeData(const char* /*data*/, qint64 /*count*/) {
    return -1;
}

}  // namespace vxP
