// dlopen and dlsym.
#include "host/access/pluginLibrary.h"

#include <dlfcn.h>

#include <filesystem>

#include "host/base/systemReason.h"

namespace vxH {
namespace {

constexpr const char* pluginFile = "lx_vxSceneParserHoudini64.so";

template <class _function>
bool findSymbol(void* library, const char* name, _function*& function) {
    function = reinterpret_cast<_function*>(dlsym(library, name));
    return function != nullptr;
}

}  // namespace

QString _pluginLibrary::load(const QString& path) {
    // a name without a folder would be searched for in the system's library folders
    std::error_code ignored;
    const auto file = std::filesystem::absolute(path.toStdString(), ignored);
    struct stat status {};
    const bool isOdd = stat(file.c_str(), &status) == 0 && !S_ISREG(status.st_mode);  // a pipe would hold dlopen up
    if (isOdd) return QStringLiteral("%1: %2, not a regular file").arg(path, kindOfFile(status.st_mode));
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return QString::fromUtf8(dlerror());
    const char* missing = nullptr;
    if (!findSymbol(library, "pInfo", info)) missing = "pInfo";
    if (!findSymbol(library, "pLoadSceneFile", loadSceneFile)) missing = "pLoadSceneFile";
    return missing == nullptr ? QString{} : QStringLiteral("%1: no entry point %2").arg(path, QLatin1String{missing});
}

QString defaultPlugin() {
    std::error_code ignored;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    const auto beside = folder / pluginFile;
    const auto installed = (folder / VX_PLUGIN_FOLDER_FROM_PROGRAM / pluginFile).lexically_normal();
    const bool isInstalled = !std::filesystem::exists(beside, ignored) && std::filesystem::exists(installed, ignored);
    return QString::fromStdString((isInstalled ? installed : beside).native());
}

}  // namespace vxH
