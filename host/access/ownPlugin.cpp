#include "host/access/ownPlugin.h"

#include <fcntl.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <array>
#include <string_view>

namespace vxH {

namespace {

constexpr std::size_t firstPage = 4096;  // bytes; the linker's notes follow the file's head

}  // namespace

bool isBuiltLikeProgram(const QString& plugin) {
    const auto mark = QByteArray::fromHex(ownPluginMark).toStdString();
    const int file = open(QFile::encodeName(plugin).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // may be a pipe
    if (file < 0) return false;
    std::array<char, firstPage> page;
    const ssize_t count = read(file, page.data(), page.size());
    close(file);
    if (mark.empty() || count <= 0) return false;
    return std::string_view{page.data(), static_cast<std::size_t>(count)}.find(mark) != std::string_view::npos;
}

}  // namespace vxH
