// A load of arbitrary bytes as Houdini reads them: takes, wedges and wires, whose circles have to end.
#include "fuzz/fuzzRecords.h"
#include "fuzz/fuzzScene.h"
#include "tests/support/sceneText.h"

namespace {

const char* const arguments[] = {"submitter", "-houdiniResolve"};

qint32 loadResolved(vxP::_dataPARS_LoadSceneFile* load) {
    const vxP::_submitterSettings settings{std::size(arguments), arguments};
    vxP::_dataPARS_LoadSceneFile resolved = *load;
    resolved.settings = &settings;
    return pLoadSceneFile(&resolved);
}

/// Positions of all jobs that a job waits for, where its record does not name them all.
void expectSoundList(const vxJ::_JobBasics_largePath& job, qint32 index) {
    const QString list = job.sceneSettings.customData_Str(vxJ::CUSTOMWaitsFor);
    for (const QString& position : list.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        vxFuzz::expect(position.toInt() >= 1 && position.toInt() <= index, "a job lists jobs before it");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view scene(reinterpret_cast<const char*>(data), size);
    vxJ::_JobBasicsArray jobs[2];
    qint32 codes[2];
    for (int i = 0; i < 2; ++i) {
        vxTest::freshScanState();
        codes[i] = vxFuzz::loadScene(scene, jobs[i], loadResolved, vxJ::waitForPreIDCapacity);
    }
    vxFuzz::expect(codes[0] == codes[1] && jobs[0].count == jobs[1].count, "a scene gives the same jobs each time");
    for (qint32 i = 0; i < std::min(jobs[0].count, jobs[0].allocated); ++i) {
        expectSoundList(*jobs[0].at(i), i);
        const auto first = vxFuzz::bytesOf(*jobs[0].at(i));
        const auto second = vxFuzz::bytesOf(*jobs[1].at(i));
        vxFuzz::expect(std::equal(first.begin(), first.end(), second.begin()), "... to the byte");
    }
    return 0;
}
