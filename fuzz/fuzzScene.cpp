#include "fuzz/fuzzScene.h"

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/fuzzRecords.h"
#include "jobs/renderers.h"
#include "scan/scanState.h"

namespace vxFuzz {

namespace {

using namespace vxP;

constexpr int sceneFile = 100;  ///< descriptor: the same one in every run, as it is part of the scene's name
constexpr QStringView sceneName{u"/proc/self/fd/100"};

const char* const arguments[] = {"submitter", "-houdiniCompressedIFD", "-customRenVer_Arnold", "7.1.2"};

void writeScene(std::string_view scene) {
    static const int written = dup2(memfd_create("scene", MFD_CLOEXEC), sceneFile);
    expect(written == sceneFile && ftruncate(sceneFile, 0) == 0 &&
               pwrite(sceneFile, scene.data(), scene.size(), 0) == static_cast<ssize_t>(scene.size()),
           "the scene can be written");
}

void expectSoundJob(const _JobBasics_largePath& job, qint32 index) {
    expect(job.structureIDs[0] == structureVersion, "a job begins with its layout");
    expect(job.preID == static_cast<quint8>(index + 1), "a job's number is its place");
    forEachText(job, [](const auto& text) { expectSound(text); });
    for (const _channelSlot& slot : job.channels) {
        expectSound(slot.fileName);
        expectSound(slot.extension);
    }
    const vxJ::_JobSettingsScene& settings = job.sceneSettings;
    for (int id = 0; id < settings.customData_maxIDs(); ++id)
        expect(!settings.customData_NameByID(id).isEmpty() && !settings.customData_StrByID(id).isEmpty(),
               "custom data is complete");
}

/// A number repeats every 256 jobs: the nearest job before that has it is meant.
void expectSoundWaits(const vxJ::_JobBasicsArray& jobs, qint32 index, int most) {
    const _JobBasics_largePath& job = *jobs.at(index);
    expect(job.waitForPreIDCount <= most, "a job waits for no more jobs than it may");
    for (int i = 0; i < job.waitForPreIDCount; ++i) {
        const qint32 back = static_cast<quint8>(job.preID - job.waitForPreIDs[i]);
        expect((back == 0 ? 256 : back) <= index, "a job waits for jobs before it");
    }
}

void expectNoWedgePlaceholder(const _JobBasics_largePath& job) {
    if (job.sceneSettings.customData_Contains(vxJ::CUSTOMVariant)) return;  // the name of a random variant is not known
    const auto expectNone = [](const _vxString<1000>& text) {
        expect(!text.contains(u"$WEDGE") && !text.contains(u"${WEDGE}"), "no placeholder of a wedge is left");
    };
    expectNone(job.imageDir);
    expectNone(job.imageFileName);
    if (job.app.toQString() != vxP::appNameHoudini) expectNone(job.sceneName);
    for (const _channelSlot& slot : job.channels) expectNone(slot.fileName);
}

}  // namespace

qint32 loadScene(std::string_view scene, vxJ::_JobBasicsArray& jobs, const _loader& loader, int mostWaits) {
    writeScene(scene);
    const _vxString<500> name(sceneName);
    const _submitterSettings settings{std::size(arguments), arguments};
    _dataPARS_LoadSceneFile load{&name, &jobs, &settings};
    const qint32 before = jobs.count;
    const qint32 code = loader(&load);
    expect(code == resultSuccess || code == resultException || code == resultNoMoreJobs || code == resultNoUsableOutput,
           "a readable scene gives one of four results");
    expect(jobs.count >= before && (code == resultNoMoreJobs || jobs.count <= jobs.allocated), "the jobs are there");
    expect(code != resultNoUsableOutput || jobs.count == 0, "a job has a usable output");
    expectSound(jobs.message);
    for (qint32 i = 0; i < std::min(jobs.count, jobs.allocated); ++i) {
        expectSoundJob(*jobs.at(i), i);
        expectSoundWaits(jobs, i, mostWaits);
        if (code == resultSuccess) expectNoWedgePlaceholder(*jobs.at(i));
    }
    return code;
}

}  // namespace vxFuzz
