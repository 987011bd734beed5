// The parameters of a node: what is read comes back when it is written and read again.
#include "scene/parameters.h"

#include "fuzz/fuzzInput.h"
#include "fuzz/quotedText.h"

namespace {

using vxFuzz::expect;

std::string written(const vxN::_parameters& parameters) {
    std::string text = "{\nversion 0.8\n";
    for (const vxN::_parameter& parameter : parameters.all()) {
        text.append(parameter.name).append("\t[ 0\tlocks=" + std::to_string(parameter.locks) + " ]\t(\t");
        for (const vxN::_value& value : parameter.values) {
            const std::string cached = vxFuzz::quoted(value.text);
            text += value.isDriven() ? "[ " + std::string(value.channel) + '\t' + cached + " ] \t" : cached + '\t';
        }
        text += ")\n";
    }
    return text + "}\n";
}

bool isSame(const vxN::_parameter& a, const vxN::_parameter& b) {
    return a.name == b.name && a.locks == b.locks &&
           std::equal(a.values.begin(), a.values.end(), b.values.begin(), b.values.end(),
                      [](const auto& one, const auto& other) {
                          return one.text == other.text && one.channel == other.channel;
                      });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const vxN::_parameters read(std::string(reinterpret_cast<const char*>(data), size));
    const vxN::_parameters again(written(read));
    expect(again.isWhole(), "what is written is whole");
    expect(std::equal(read.all().begin(), read.all().end(), again.all().begin(), again.all().end(), isSame),
           "parameters come back as they were");
    for (const vxN::_parameter& parameter : read.all()) {
        expect(read.find(parameter.name) >= &parameter, "the last parameter of a name is found");
        for (const vxN::_value& value : parameter.values)
            expect(!value.isDriven() || read.component(value.channel)->channel == value.channel,
                   "a driven component is found by its channel");
    }
    return 0;
}
