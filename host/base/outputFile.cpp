#include "host/base/outputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "host/base/descriptorWrite.h"
#include "host/base/systemReason.h"

namespace vxH {
namespace {

namespace fs = std::filesystem;

constexpr int mostLinks = 40;  // in a row, as the system has it
constexpr mode_t permissionBits = 0777;
constexpr mode_t newFile = 0666;  // less what the umask takes

bool isSame(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Where links lead to, the last of which may lead nowhere.
fs::path withoutLinks(fs::path path) {
    std::error_code noLink;
    for (int i = 0; i < mostLinks; ++i) {
        const auto target = fs::read_symlink(path, noLink);
        if (noLink) break;
        path = path.parent_path() / target;
    }
    return path;
}

mode_t newPermissions() {
    const mode_t mask = umask(0);
    umask(mask);
    return newFile & ~mask;
}

/// @return 0, or the errno
int writeAndClose(int file, const QByteArray& bytes) {
    const int error = writeAll(file, bytes) ? 0 : errno;
    return close(file) == 0 || error != 0 ? error : errno;
}

/// Those of the file that is replaced; its owner only where the system allows that. @return 0, or the errno
int takeAttributes(int file, const struct stat* former) {
    if (former == nullptr) return fchmod(file, newPermissions()) == 0 ? 0 : errno;
    [[maybe_unused]] const int mayFail = fchown(file, former->st_uid, former->st_gid);
    return fchmod(file, former->st_mode & permissionBits) == 0 ? 0 : errno;
}

/// @param former  the file that there is; null: none. @return 0, or the errno
int replaceFile(const fs::path& path, const struct stat* former, const QByteArray& bytes) {
    if (former != nullptr && faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) return errno;
    auto temporary = (path.parent_path() / ".vxscene.XXXXXX").native();
    const int file = mkostemp(temporary.data(), O_CLOEXEC);
    if (file < 0) return errno;
    int error = takeAttributes(file, former);
    const int written = writeAndClose(file, bytes);
    if (error == 0) error = written;
    if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0) error = errno;
    if (error != 0) unlink(temporary.c_str());
    return error;
}

/// Of a device or a pipe, which is opened as soon as somebody reads it. @return 0, or the errno
int writeInto(const std::string& path, const QByteArray& bytes) {
    const int file = open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    return file < 0 ? errno : writeAndClose(file, bytes);
}

}  // namespace

QString problemOfOutput(const std::string& path, const std::vector<std::string>& inputs) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return {};  // writing it says why it cannot be made
    if (S_ISDIR(status.st_mode) || S_ISSOCK(status.st_mode) || S_ISBLK(status.st_mode))
        return QLatin1String{"it is "} + kindOfFile(status.st_mode);
    const bool isInput = S_ISREG(status.st_mode) && std::any_of(inputs.begin(), inputs.end(), [&](const auto& input) {
                             struct stat read {};
                             return stat(input.c_str(), &read) == 0 && isSame(read, status);
                         });
    return isInput ? QStringLiteral("it is one of the scenes") : QString{};
}

QString writeOutputFile(const std::string& path, const QByteArray& bytes) {
    struct stat status {};
    const bool exists = stat(path.c_str(), &status) == 0;
    const int error = exists && !S_ISREG(status.st_mode)
                          ? writeInto(path, bytes)
                          : replaceFile(withoutLinks(path), exists ? &status : nullptr, bytes);
    return error == 0 ? QString{} : reasonOf(error);
}

}  // namespace vxH
