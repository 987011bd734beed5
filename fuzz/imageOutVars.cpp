// The file name of an output parameter line.
#include "grammar/imageOutVars.h"

#include "fuzz/fuzzInput.h"
#include "scan/scanBudget.h"

/// Input: prepend, take used before, name read before (1 byte each), line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vxP::beginBudget();
    vxFuzz::_input input(data, size);
    const bool prepend = input.flag();
    const bool takeUsedBefore = input.flag();
    const QString before = input.flag() ? QStringLiteral("old") : QString();
    QString out = before;
    bool takeUsed = takeUsedBefore;
    bool noFrame = false;
    const bool stored = vxP::replaceImageOutVars(input.rest(), prepend, out, takeUsed, noFrame);
    vxFuzz::expect(takeUsed || !takeUsedBefore, "the use of the take is never cleared");
    vxFuzz::expect(stored || out == before, "a name stays when the line has no usable one");
    vxFuzz::expect(!stored || (!out.isEmpty() && !out.contains(u'{') && !out.contains(u'}')),
                   "a stored name is not empty and has no braces");
    vxFuzz::expect(!stored || !prepend || out.endsWith(before), "a prefix goes in front");
    return 0;
}
