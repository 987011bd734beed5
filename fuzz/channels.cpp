// The channel store of the compact form over an arbitrary record.
#include "fuzz/fuzzRecords.h"

namespace {

using vxFuzz::expect;

void readAll(const vxJ::_JobBasics& job) {
    for (int i = -1; i <= vxJ::channelCapacity; ++i) {
        vxFuzz::expectSound(job.channelFileName(i));
        vxFuzz::expectSound(job.channelExtension(i));
    }
}

/// Input of one change: kind, channel (1 byte each), lines: file name, extension.
void change(vxJ::_JobBasics& job, vxFuzz::_input& input) {
    const auto kind = input.number<quint8>();
    const int i = input.number<qint8>();
    const vxJ::_vxString<500> name(input.line());
    const vxJ::_vxString<25> extension(input.line());
    switch (kind % 7) {
        case 0:
            return job.channelAdd(name, extension);
        case 1:
            return job.channelSetFileName(i, name);
        case 2:
            return job.channelSetExtension(i, extension);
        case 3:
            return job.channelSet(i, name, extension);
        case 4:
            return job.channelRemove(i);
        case 5:
            return job.channelClearUnusedBuffer();
        default:
            return job.splitImageFileInto_DirFileExt_Channel(i % 2 != 0);
    }
}

}  // namespace

/// Input: places to overwrite in the store (from its first byte) of a new job, then changes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto& job = *new vxJ::_JobBasics;
    static auto& fresh = *new vxJ::_JobBasics;
    job = fresh;
    const auto bytes = vxFuzz::bytesOf(job);
    const auto start = &job.channelCount - bytes.data();
    const auto end = vxFuzz::bytesOf(job.sceneSettings).data() - bytes.data();
    vxFuzz::_input input(data, size);
    input.patch({bytes.begin() + start, bytes.begin() + end});
    readAll(job);
    while (!input.isEmpty()) change(job, input);
    readAll(job);
    const auto old = vxFuzz::bytesOf(fresh);
    expect(std::equal(bytes.begin(), bytes.begin() + start, old.begin()) &&
               std::equal(bytes.begin() + end, bytes.end(), old.begin() + end),
           "nothing is written beside the store");
    job.channelClear();
    expect(job.channelFileName(0).isEmpty() && job.channelPoolUsed == 0, "a cleared store is empty");
    return 0;
}
