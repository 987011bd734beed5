// Table, JSON list, JSON lines.
#include "host/resultOutput.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "host/jobTable.h"
#include "host/sceneLoad.h"

namespace vxH {

QString jsonText(const QJsonObject& object, bool indented) {
    const auto bytes = QJsonDocument(object).toJson(indented ? QJsonDocument::Indented : QJsonDocument::Compact);
    return QString::fromUtf8(bytes).trimmed();
}

void _resultOutput::print(const QJsonObject& result) {
    switch (format) {
        case _format::table:
            printTable(result);
            break;
        case _format::json:
            printListElement(result);
            break;
        case _format::jsonl:
            writeLine(stdout, jsonText(result, false));
            break;
    }
    isFirst = false;
    std::fflush(stdout);
}

void _resultOutput::finish() {
    if (format == _format::json && !isFirst) writeLine(stdout, QStringLiteral("\n]"));
    std::fflush(stdout);
}

void _resultOutput::printTable(const QJsonObject& result) const {
    const bool failedWithoutJobs = result.contains(errorKey) && result[jobsKey].toArray().isEmpty();
    if (failedWithoutJobs) return;  // its line on the error stream says all
    if (!isFirst) writeLine(stdout, {});
    writeLine(stdout, sceneSummary(result));
    const auto lines = jobTable(result, terminal);
    for (const auto& line : lines) writeLine(stdout, line);
}

void _resultOutput::printListElement(const QJsonObject& result) const {
    const auto text = (isFirst ? QLatin1String{"[\n"} : QLatin1String{",\n"}) + jsonText(result, true);
    const auto bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
}

}  // namespace vxH
