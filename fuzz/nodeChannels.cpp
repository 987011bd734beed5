// The channels of a node: what is read comes back when it is written and read again.
#include <array>

#include "fuzz/fuzzInput.h"
#include "fuzz/quotedText.h"
#include "scene/channels.h"

namespace {

using vxFuzz::expect;

std::string written(double number) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.17g", number);
    return text.data();
}

std::string written(const vxN::_inOut& pair) {
    return written(pair.in) + ' ' + written(pair.out);
}

std::string written(const vxN::_segment& segment) {
    return "segment { length = " + written(segment.length) + " value = " + written(segment.value) +
           " slope = " + written(segment.slope) + " accel = " + written(segment.accel) +
           " expr = " + vxFuzz::quoted(segment.expression) + " }\n";
}

std::string written(const vxN::_channels& channels) {
    std::string text = "{\n";
    for (const vxN::_channel& channel : channels.all()) {
        text.append("channel ").append(channel.name).append(" {\nstart = ").append(written(channel.start)) += '\n';
        if (channel.defaultNumber) text += "default = " + written(*channel.defaultNumber) + '\n';
        if (channel.defaultText) text += "defaultString = " + vxFuzz::quoted(*channel.defaultText) + '\n';
        for (const vxN::_segment& segment : channel.segments) text += written(segment);
        text += "}\n";
    }
    return text + "}\n";
}

bool isSame(const vxN::_channel& a, const vxN::_channel& b) {
    return a.name == b.name && a.start == b.start && a.defaultNumber == b.defaultNumber &&
           a.defaultText == b.defaultText && a.isExpression() == b.isExpression() &&
           std::equal(a.segments.begin(), a.segments.end(), b.segments.begin(), b.segments.end(),
                      [](const auto& one, const auto& other) {
                          return written(one) == written(other) && one.interpolation == other.interpolation;
                      });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const vxN::_channels read(std::string(reinterpret_cast<const char*>(data), size));
    const vxN::_channels again(written(read));
    expect(again.isWhole(), "what is written is whole");
    expect(std::equal(read.all().begin(), read.all().end(), again.all().begin(), again.all().end(), isSame),
           "channels come back as they were");
    for (const vxN::_channel& channel : read.all())
        expect(read.find(channel.name) >= &channel, "the last channel of a name is found");
    return 0;
}
