// Path texts: nothing in them may lead outside them.
#include "fuzz/fuzzInput.h"
#include "shared/vxPath.h"

namespace {

using vxFuzz::expect;

void checkParts(const QString& text, QChar separator) {
    const QString folder = vxS::vxGetDirName(text, separator);
    expect(text.startsWith(folder), "a folder is the beginning of its path");
    expect(folder.isEmpty() || folder.endsWith(separator), "a folder ends with its separator");
    const QString base = vxS::vxGetFileNameBase(text, separator);
    expect(text.contains(base) && !base.contains(separator), "a base name is a part of its path");
}

void checkResolved(const QString& text) {
    const QString resolved = vxS::vxPathResolve(text);
    expect(resolved.isEmpty() == text.isEmpty(), "a path stays a path");
    const bool oneSeparator = !text.contains(u'/') || !text.contains(u'\\');
    expect(!oneSeparator || vxS::vxPathResolve(resolved) == resolved, "a resolved path is resolved");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = vxFuzz::_input(data, size).rest();
    checkParts(text, u'/');
    checkParts(text, u'\\');
    checkResolved(text);
    return 0;
}
