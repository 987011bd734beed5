// The system's lists of a process's open files: /proc/PID/fd and /proc/PID/fdinfo.
#include "host/batch/sceneReading.h"

#include <sys/stat.h>

#include <QFile>
#include <filesystem>
#include <fstream>
#include <string>

namespace vxH {

_sceneReading readingOf(pid_t process, const QString& scene) {
    struct stat wanted {};
    if (stat(QFile::encodeName(scene).constData(), &wanted) != 0) return {};
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    std::error_code ended;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "fd", ended)) {
        struct stat file {};
        const bool isWanted =
            stat(entry.path().c_str(), &file) == 0 && file.st_ino == wanted.st_ino && file.st_dev == wanted.st_dev;
        std::string word;
        qint64 place = 0;
        if (isWanted && std::ifstream(folder / "fdinfo" / entry.path().filename()) >> word >> place)
            return {place, wanted.st_size};
    }
    return {};
}

}  // namespace vxH
