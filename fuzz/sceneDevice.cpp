// The scan that leaves lines out finds what a scan of all lines finds.
#include "fuzz/fuzzInput.h"
#include "input/candidateScan.h"
#include "tests/support/twoScans.h"

/// Input: search path and size of the pieces in which the scene comes (1 byte each), scene.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr vxP::_searchPath paths[] = {vxP::_searchPath::automatic, vxP::_searchPath::avx2,
                                          vxP::_searchPath::portable};
    vxFuzz::_input input(data, size);
    vxP::chooseSearchPath(paths[input.number<quint8>() % std::size(paths)]);
    const qint64 piece = input.number<quint8>() * qint64{64} + 1;
    const std::string_view rest = input.bytes(size);
    const QByteArray scene(rest.data(), static_cast<int>(rest.size()));
    const QByteArray fast = vxTest::outcomeOfScan(scene, piece);
    const QByteArray plain = vxTest::outcomeOfPlainScan(scene);
    // Reading more lines takes more work: either way may end for that alone.
    vxFuzz::expect(fast == plain || fast.isEmpty() || plain.isEmpty(), "no wanted line is left out");
    return 0;
}
