#include "host/base/descriptorWrite.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "host/base/interrupt.h"

namespace vxH {
namespace {

/// Whether to try once more after a write that failed; waits until that may help.
bool isWorthAnother(int descriptor, bool hasBegun) {
    const bool isFull = errno == EAGAIN;
    if (errno != EINTR && !isFull) return false;
    if (!hasBegun && _interrupts::noted() != 0) return false;
    pollfd output{descriptor, POLLOUT, 0};
    if (isFull) poll(&output, 1, -1);
    return true;
}

}  // namespace

bool writeAll(int descriptor, const QByteArray& bytes) {
    for (decltype(bytes.size()) done = 0; done < bytes.size();) {
        const auto written = write(descriptor, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (written < 0 && isWorthAnother(descriptor, done > 0)) continue;
        if (written <= 0) return false;
        done += static_cast<decltype(done)>(written);
    }
    return true;
}

}  // namespace vxH
