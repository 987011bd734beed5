// Libraries of definitions and their dialog scripts.
#include "evaluate/definitions.h"

#include "fuzz/fuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using vxFuzz::expect;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto isWithin = [&](std::string_view part) {
        return part.empty() || (part.data() >= bytes.data() && part.data() + part.size() <= bytes.data() + size);
    };
    for (const vxV::_librarySection& section : vxV::readLibrary(bytes)) {
        expect(isWithin(section.name) && isWithin(section.content), "a section lies within its library");
    }
    const auto parameters = vxV::readDialogScript(bytes);
    for (const vxV::_parameterDefinition& parameter : parameters) {
        expect(!parameter.type.empty(), "what is defined has a type");
        const vxV::_parameterDefinition* const found = vxV::findDefinition(parameters, parameter.name);
        expect(found == nullptr || found <= &parameter, "the first definition of a name is found");
    }
    return 0;
}
