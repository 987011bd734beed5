// An arbitrary job in its compact form.
#include "fuzz/fuzzRecords.h"

/// Input: places to overwrite in a new job.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto& job = *new vxJ::_JobBasics_largePath;
    static auto& before = *new vxJ::_JobBasics_largePath;
    static auto& compact = *new vxJ::_JobBasics;
    job.initialize();
    vxFuzz::_input input(data, size);
    vxFuzz::patchJob(input, job);
    std::memcpy(static_cast<void*>(&before), &job, sizeof before);
    job.toJobsBasic(compact);
    vxFuzz::expect(std::memcmp(&before, &job, sizeof before) == 0, "the job itself stays as it is");
    vxFuzz::forEachText(compact, [](const auto& text) { vxFuzz::expectReadable(text); });
    vxFuzz::expectSound(compact.sceneName);
    vxFuzz::expectSound(compact.imageDir);
    vxFuzz::expectSound(compact.imageFileName);
    vxFuzz::expectSound(compact.imageExtension);
    int used = 0;
    for (const vxJ::_channelSlot& slot : job.channels) used += slot.fileName.isEmpty() ? 0 : 1;
    vxFuzz::expect(compact.channelCount <= used, "a channel has a name");
    for (int i = 0; i < compact.channelCount; ++i)
        vxFuzz::expect(!compact.channelFileName(i).isEmpty(), "a channel that fits can be read");
    return 0;
}
