// Table, JSON list, JSON lines.
#include "host/commands/resultOutput.h"

#include <unistd.h>

#include <QJsonDocument>

#include "host/base/descriptorWrite.h"

namespace vxH {
namespace {

/// What stands around the results of a format.
struct _frame {
    _format format;
    const char* begin;
    const char* between;
    const char* afterEach;
    const char* end;
    const char* withoutAny;
};
constexpr _frame frames[] = {
    {_format::table, "", "\n", "", "", ""},
    {_format::json, "[\n", ",\n", "", "\n]\n", "[]\n"},
    {_format::jsonl, "", "", "\n", "", ""},
};

const _frame& frameOf(_format format) {
    return frames[static_cast<int>(format)];
}
static_assert([] {
    for (int i = 0; i < 3; ++i) {
        if (static_cast<int>(frames[i].format) != i) return false;
    }
    return true;
}());

}  // namespace

QString jsonText(QJsonObject object, bool indented) {
    object.insert(formatVersionKey, formatVersion);
    const auto bytes = QJsonDocument(object).toJson(indented ? QJsonDocument::Indented : QJsonDocument::Compact);
    return QString::fromUtf8(bytes).trimmed();
}

QByteArray resultText(const QJsonObject& result, _format format, const _resultTable& table, const _terminal& terminal) {
    const auto text = format == _format::table ? table(result, terminal) : jsonText(result, format == _format::json);
    return text.toUtf8();
}

bool _resultOutput::print(const QByteArray& text) {
    if (text.isEmpty()) return true;
    const auto& frame = frameOf(format);
    const bool isWritten = writeAll(STDOUT_FILENO, (isFirst ? frame.begin : frame.between) + text + frame.afterEach);
    isFirst = isFirst && !isWritten;
    return isWritten;
}

bool _resultOutput::finish() {
    const auto& frame = frameOf(format);
    return writeAll(STDOUT_FILENO, isFirst ? frame.withoutAny : frame.end);
}

}  // namespace vxH
