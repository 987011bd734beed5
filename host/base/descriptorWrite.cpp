#include "host/base/descriptorWrite.h"

#include <unistd.h>

#include <cerrno>

#include "host/base/interrupt.h"

namespace vxH {

bool writeAll(int descriptor, const QByteArray& bytes) {
    for (decltype(bytes.size()) done = 0; done < bytes.size();) {
        const auto written = write(descriptor, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        const bool goesOn = written < 0 && errno == EINTR && (done > 0 || _interrupts::noted() == 0);
        if (goesOn) continue;
        if (written <= 0) return false;
        done += static_cast<decltype(done)>(written);
    }
    return true;
}

}  // namespace vxH
