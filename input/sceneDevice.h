// Where the lines of a scene come from.
#pragma once

#include <QIODevice>
#include <memory>

#include "input/sceneLines.h"

namespace vxP {

/// A device over an open scene that hands out one line per read: the text stream above it never reads ahead of the line
/// that it was asked for, so the scan and the section readers share one position. Lines that nobody wants are left out.
/// Reads in large blocks, not through a memory map: a scene that is cut short while it is read must end early, never
/// fault.
class _sceneDevice : public QIODevice {
 public:
    /// @param source  open for reading; must outlive the device
    explicit _sceneDevice(QIODevice& source);

    /// Tells that a reader takes the lines that follow, or no longer does. Which lines are wanted depends on it.
    void setSectionOpen(bool open) { lines->setSectionOpen(open); }

    /// Leaves out sections that come to nothing, as long as nobody wants to know of them.
    void passEmptySections(_emptySections& passer) { lines->passEmptySections(passer); }

    /// Position in the scene of the line read last (bytes from its beginning).
    qint64 positionOfLine() const { return lines->positionOfLine(); }

    bool isSequential() const override { return true; }
    bool atEnd() const override { return lines->next().empty(); }
    /// True when the source reported an error; the device then ends like at the end of the scene.
    bool readFailed() const { return lines->readFailed(); }

 protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char* data, qint64 count) override;

 private:
    std::unique_ptr<_sceneLines> lines;
    std::size_t handedOut = 0;  ///< bytes of the current line
};

}  // namespace vxP
