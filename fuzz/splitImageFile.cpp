// The split of an output path, in its three sizes and over texts with any length word.
#include "jobs/splitImageFile.h"

#include "fuzz/fuzzRecords.h"

namespace {

/// A text from a line; with `broken`, the length word is above the capacity and the characters go on to the end.
template <typename Text>
Text textOf(const QString& line, bool broken) {
    Text text(line);
    if (!broken) return text;
    constexpr quint16 length = 0xFFFF;
    std::memcpy(static_cast<void*>(&text), &length, sizeof length);
    auto* const units = reinterpret_cast<quint8*>(&text) + 4;
    const auto used = std::min<std::size_t>(Text::capacity(), static_cast<std::size_t>(line.size())) * 2;
    std::fill(units + used, reinterpret_cast<quint8*>(&text + 1), quint8{'/'});
    return text;
}

/// Input: bits, padding (1 byte each), then lines: file, folder, extension, project folder, scene.
template <quint16 A, quint16 B>
void split(vxFuzz::_input input) {
    const auto bits = input.number<quint8>();
    auto padding = input.number<quint8>();
    bool single = (bits & 1) != 0;
    auto file = textOf<vxJ::_vxString<B>>(input.line(), (bits & 4) != 0);
    auto dir = textOf<vxJ::_vxString<A>>(input.line(), (bits & 8) != 0);
    auto ext = textOf<vxJ::_vxString<25>>(input.line(), (bits & 16) != 0);
    const auto database = textOf<vxJ::_vxString<A>>(input.line(), (bits & 32) != 0);
    const auto scene = textOf<vxJ::_vxString<A>>(input.line(), (bits & 64) != 0);
    vxJ::template_splitImageFileInto_DirFileExt<A, B>((bits & 2) != 0, file, dir, ext, single, padding, database,
                                                      scene);
    vxFuzz::expectSound(file);
    vxFuzz::expectSound(dir);
    vxFuzz::expectSound(ext);
    vxFuzz::expect(!single || ext.isEmpty(), "one file for all frames keeps its extension in its name");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const vxFuzz::_input input(data, size);
    split<500, 250>(input);
    split<500, 500>(input);
    split<1000, 1000>(input);
    return 0;
}
