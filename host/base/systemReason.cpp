#include "host/base/systemReason.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace vxH {
namespace {

struct _fileKind {
    mode_t mode;
    QLatin1String words;
};
constexpr _fileKind fileKinds[] = {
    {S_IFREG, QLatin1String{"a regular file"}}, {S_IFDIR, QLatin1String{"a folder"}},
    {S_IFIFO, QLatin1String{"a pipe"}},         {S_IFSOCK, QLatin1String{"a socket"}},
    {S_IFCHR, QLatin1String{"a device"}},       {S_IFBLK, QLatin1String{"a block device"}},
};

/// "a link to /gone: " of a link, nothing of anything else.
QString linkPrefix(const std::filesystem::path& path) {
    std::error_code noLink;
    const auto target = std::filesystem::read_symlink(path, noLink);
    return noLink ? QString{} : QStringLiteral("a link to %1: ").arg(QString::fromStdString(target.native()));
}

}  // namespace

QString reasonOf(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

QString kindOfFile(mode_t mode) {
    for (const auto& kind : fileKinds) {
        if ((mode & S_IFMT) == kind.mode) return kind.words;
    }
    return QStringLiteral("of unknown kind");
}

QString whyNotReadable(const QString& path) {
    const auto bytes = path.toUtf8();
    struct stat status {};
    if (stat(bytes.constData(), &status) != 0) {
        const auto reason = reasonOf(errno);
        return linkPrefix(bytes.toStdString()) + reason;
    }
    if (!S_ISREG(status.st_mode)) return kindOfFile(status.st_mode) + QLatin1String{", not a regular file"};
    const int file = open(bytes.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return reasonOf(errno);
    close(file);
    return {};
}

}  // namespace vxH
