#include "host/commands/resultOutput.h"

#include <unistd.h>

#include "host/base/descriptorWrite.h"
#include "host/results/sceneJson.h"

namespace vxH {

_resultFormat jsonFormat() {
    return {"json", jsonList, [](const auto& scene, const auto&) { return jsonText(explainedToJson(scene), true); }};
}

_resultFormat jsonLinesFormat() {
    return {"jsonl", lines, [](const auto& scene, const auto&) { return jsonText(explainedToJson(scene), false); }};
}

_option formatOption(const std::vector<_resultFormat>& formats, const _resultFormat*& chosen, const char* description) {
    chosen = &formats.front();
    std::vector<std::string> words;
    words.reserve(formats.size());
    for (const auto& format : formats) words.emplace_back(format.word);
    return wordOption(
        "--format", words, [&formats, &chosen](std::size_t place) { chosen = &formats[place]; }, description);
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
