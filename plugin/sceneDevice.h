// Where the lines of a scene come from.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QIODevice>

namespace vxP {

/// Opens a scene for reading. @return false for anything but a readable regular file (folders, pipes, devices)
bool openScene(QFile& file);

/// A device over an open scene that hands out at most one line per read: the text stream above it never reads ahead of
/// the line that it was asked for, so the scan and the section readers share one position. Reads in large blocks, not
/// through a memory map: a scene that is cut short while it is read must end early, never fault.
class _sceneDevice : public QIODevice {
 public:
    /// @param source  open for reading; must outlive the device
    explicit _sceneDevice(QIODevice& source);

    bool isSequential() const override { return true; }
    bool atEnd() const override { return position == block.size() && ended; }
    qint64 bytesAvailable() const override { return block.size() - position; }
    /// True when the source reported an error; the device then ends like at the end of the scene.
    bool readFailed() const { return failed; }

 protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char* data, qint64 count) override;

 private:
    void refill();

    QIODevice& source;
    QByteArray block;
    qint64 position = 0;
    bool ended = false;
    bool failed = false;
};

}  // namespace vxP
