// A scene file opened for reading.
#pragma once

#include <QIODevice>
#include <QString>

#include "scene/archive.h"

namespace vxP {

/// Closes what it holds.
struct _fileHandle {
    int number = -1;

    _fileHandle() = default;
    _fileHandle(const _fileHandle&) = delete;
    _fileHandle& operator=(const _fileHandle&) = delete;
    ~_fileHandle();
};

/// The bytes of one regular file. Reading goes on with the file that was opened, whatever becomes of its name. A file
/// that is cut short ends early. One that grows is read to the end that it has when reading gets to the end it had at
/// first, and no further: a writer that keeps appending must not keep a load from ending.
/// Read at any place, it is the file as long as it was when it was opened.
class _sceneFile : public QIODevice, public vxN::_byteSource {
 public:
    /// Opens the file; `isOpen` tells whether that went well. It does not, at once, for anything but a readable regular
    /// file: folders, pipes, devices, sockets. Only the file system gives the path a meaning; it goes there as UTF-8,
    /// and one that has no such form, or holds a NUL, names no file.
    explicit _sceneFile(const QString& path);

    bool isSequential() const override { return true; }

    qint64 byteCount() const override { return bytesAtFirst; }
    qint64 readAt(qint64 offset, char* data, qint64 most) const override;

 protected:
    /// @return -1 after an error, which never reads as the end of the file
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char* data, qint64 count) override;

 private:
    _fileHandle handle;
    qint64 position = 0;
    qint64 end = 0;
    qint64 bytesAtFirst = 0;
    bool isEndFinal = false;
};

}  // namespace vxP
