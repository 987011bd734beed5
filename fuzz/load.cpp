// A whole load of arbitrary bytes into an empty array: every new job moves the block.
#include "fuzz/fuzzScene.h"
#include "tests/support/sceneText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vxTest::freshScanState();
    vxJ::_JobBasicsArray jobs;
    vxFuzz::loadScene({reinterpret_cast<const char*>(data), size}, jobs);
    return 0;
}
