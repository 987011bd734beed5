// The smallest host: opens the plug-in, hands it a scene, prints the jobs. Usage: host PLUGIN SCENE
#include <dlfcn.h>

#include <cstdio>
#include <memory>

#include "jobs/VX_DataTypes_plugin.h"

int main(int count, char** arguments) {
    if (count != 3) return 2;
    void* const library = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return 3;
    using _loadScene = qint32 (*)(vxP::_dataPARS_LoadSceneFile*);
    const auto loadScene = reinterpret_cast<_loadScene>(dlsym(library, "pLoadSceneFile"));
    if (loadScene == nullptr) return 3;

    const vxS::_vxString<500> scene(QString::fromLocal8Bit(arguments[2]));  // a full path
    const auto jobs = std::make_unique<vxJ::_JobBasicsArray>();             // records are large: never on the stack
    const vxP::_submitterSettings settings{1, arguments};                   // no submitter arguments
    vxP::_dataPARS_LoadSceneFile load{&scene, jobs.get(), &settings};
    const qint32 code = loadScene(&load);

    for (qint32 i = 0; i < jobs->count; ++i) {
        const vxJ::_JobBasics_largePath& job = *jobs->at(i);
        std::printf("%s  %s\n", qUtf8Printable(job.layer.toQString()), qUtf8Printable(job.app.toQString()));
    }
    return code == vxP::resultSuccess ? 0 : 1;
}
