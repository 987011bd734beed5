// Scene paths are bytes for the system, UTF-16 texts of fixed capacity for the plug-in.
#include "host/base/scenePath.h"

#include <filesystem>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {
namespace {

using _sceneFileName = std::remove_cv_t<std::remove_pointer_t<decltype(vxP::_dataPARS_LoadSceneFile::sceneFileName)>>;

std::filesystem::path tidied(const std::filesystem::path& absolute) {
    std::error_code ignored;
    const auto normal = absolute.lexically_normal();
    if (normal.native() == absolute.native()) return absolute;  // without asking the file system
    return std::filesystem::equivalent(normal, absolute, ignored) ? normal : absolute;
}

}  // namespace

_scenePath absoluteScenePath(const char* argument) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(argument, error);
    if (error) return {QString::fromUtf8(argument), QStringLiteral("the path cannot be made absolute")};
    const auto bytes = QByteArray::fromStdString(tidied(absolute).native());
    const auto path = QString::fromUtf8(bytes);
    if (path.toUtf8() != bytes) return {path, QStringLiteral("the path is not valid UTF-8")};
    if (path.size() > _sceneFileName::capacity()) {
        return {path, QStringLiteral("the path has %1 characters, more than %2")
                          .arg(path.size())
                          .arg(_sceneFileName::capacity())};
    }
    return {path, {}};
}

}  // namespace vxH
