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
    const auto expectCut = [](const auto& text, const auto& whole) {
        vxFuzz::expectSound(text);
        vxFuzz::expect(text == whole.view().left(text.capacity()), "a text is kept as far as it fits");
    };
    expectCut(compact.sceneName, job.sceneName);
    expectCut(compact.sceneDatabaseDir, job.sceneDatabaseDir);
    expectCut(compact.unnamedPath, job.unnamedPath);
    expectCut(compact.imageDir, job.imageDir);
    expectCut(compact.imageFileName, job.imageFileName);
    expectCut(compact.unnamedFile, job.unnamedFile);
    expectCut(compact.imageExtension, job.imageExtension);
    int channel = 0;
    int used = 0;  // characters of the pool
    for (const vxJ::_channelSlot& slot : job.channels) {
        const QStringView name = slot.fileName.view().left(500);
        const auto length = static_cast<int>(name.size() + slot.extension.length());
        if (name.isEmpty() || used + length >= vxJ::channelPoolCapacity) continue;
        vxFuzz::expect(compact.channelFileName(channel) == name, "a channel that fits keeps its name");
        vxFuzz::expect(compact.channelExtension(channel) == slot.extension.view(), "and its extension");
        used += length;
        ++channel;
    }
    vxFuzz::expect(compact.channelCount == channel, "there is no other channel");
    return 0;
}
