// A host that shows whether builds agree to the byte: loads each scene in a process of its own and prints result code,
// number of jobs, hash of the submission's message, hash of all bytes of the jobs' records, and the scene.
// Usage: recordDump PLUGIN SCENE...
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "jobs/VX_DataTypes_plugin.h"

namespace {

QByteArray hashOf(const void* bytes, std::size_t size) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArray::fromRawData(static_cast<const char*>(bytes), static_cast<vxS::_size>(size)));
    return hash.result().toHex();
}

qint32 loadScene(const char* plugin, const char* scene, vxJ::_JobBasicsArray& jobs) {
    void* const library = dlopen(plugin, RTLD_NOW | RTLD_LOCAL);
    void* const function = library != nullptr ? dlsym(library, "pLoadSceneFile") : nullptr;
    if (function == nullptr) {
        std::fprintf(stderr, "recordDump: %s\n", dlerror());
        std::exit(2);
    }
    const vxS::_vxString<500> name(QString::fromLocal8Bit(scene));
    const char* const arguments[] = {"recordDump"};
    const vxP::_submitterSettings settings{1, arguments};
    vxP::_dataPARS_LoadSceneFile load{&name, &jobs, &settings};
    return reinterpret_cast<qint32 (*)(vxP::_dataPARS_LoadSceneFile*)>(function)(&load);
}

void dump(const char* plugin, const char* scene) {
    const auto jobs = std::make_unique<vxJ::_JobBasicsArray>();
    const qint32 code = loadScene(plugin, scene, *jobs);
    const auto size = static_cast<std::size_t>(jobs->count) * vxJ::largePathRecordSize;
    // Behind the message's end its memory is as this host left it.
    const QByteArray message =
        hashOf(jobs->message.view().utf16(), static_cast<std::size_t>(jobs->message.length()) * 2);
    std::printf("%d %d %s %s %s\n", code, jobs->count, message.constData(), hashOf(jobs->jobs, size).constData(),
                scene);
}

bool dumpInChild(const char* plugin, const char* scene) {
    const pid_t child = fork();
    if (child == 0) {
        dump(plugin, scene);
        std::exit(0);
    }
    int status = 0;
    if (child > 0 && waitpid(child, &status, 0) == child && status == 0) return true;
    std::fprintf(stderr, "recordDump: no result for %s\n", scene);
    return false;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) return 2;
    bool allDumped = true;
    for (int i = 2; i < count; ++i) allDumped = dumpInChild(arguments[1], arguments[i]) && allDumped;
    return allDumped ? 0 : 1;
}
