// Two scenes in one process, into one array that has its records already: the second scene starts from the state that
// the first one left, and the limit of jobs before a driver is in reach.
#include "fuzz/fuzzScene.h"
#include "tests/support/sceneText.h"

namespace {

constexpr int records = 300;

}  // namespace

/// Input: length of the first scene (2 bytes), first scene, second scene.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static vxJ::_JobBasicsArray jobs;
    vxFuzz::expect(jobs.setArraySize(records), "there is memory for the records");
    jobs.clear();
    vxTest::freshScanState();
    vxFuzz::_input input(data, size);
    const auto first = input.number<quint16>();
    vxFuzz::loadScene(input.bytes(first), jobs);
    // A host whose array overflowed takes a new one.
    if (jobs.count > records) jobs.clear();
    vxFuzz::loadScene(input.bytes(size), jobs);
    return 0;
}
