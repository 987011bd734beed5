#include "host/commands/resultOutput.h"

#include <unistd.h>

#include "host/base/descriptorWrite.h"

namespace vxH {

_resultFormat jsonFormat() {
    return {"json", jsonList, [](const auto& scene, const auto&) { return explainedText(scene, true); }};
}

_resultFormat jsonLinesFormat() {
    return {"jsonl", lines, [](const auto& scene, const auto&) { return explainedText(scene, false); }};
}

bool _resultOutput::print(const QByteArray& text) {
    if (text.isEmpty()) return true;
    const bool isWritten = writeAll(STDOUT_FILENO, (isFirst ? frame.begin : frame.between) + text + frame.afterEach);
    isFirst = isFirst && !isWritten;
    return isWritten;
}

bool _resultOutput::finish() {
    return writeAll(STDOUT_FILENO, isFirst ? frame.withoutAny : frame.end);
}

}  // namespace vxH
