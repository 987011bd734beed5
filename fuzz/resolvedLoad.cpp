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
    qint32 codes[2];
    std::vector<std::size_t> records[2];
    for (int i = 0; i < 2; ++i) {
        vxTest::freshScanState();
        vxJ::_JobBasicsArray jobs;
        codes[i] = vxFuzz::loadScene(scene, jobs, loadResolved, vxJ::waitForPreIDCapacity);
        for (qint32 job = 0; job < std::min(jobs.count, jobs.allocated); ++job) {
            expectSoundList(*jobs.at(job), job);
            const auto bytes = vxFuzz::bytesOf(*jobs.at(job));
            records[i].push_back(std::hash<std::string_view>{}({reinterpret_cast<char*>(bytes.data()), bytes.size()}));
        }
    }
    vxFuzz::expect(codes[0] == codes[1] && records[0] == records[1], "a scene gives the same records each time");
    return 0;
}
