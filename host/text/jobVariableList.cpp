// From records to lists, from lists to lines.
#include "host/text/jobVariableList.h"

#include <memory>

#include "host/base/displayText.h"

namespace vxH {
namespace {

constexpr QLatin1String jobKey{"job"};
constexpr QLatin1String layerKey{"layer"};
constexpr QLatin1String variablesKey{"variables"};
constexpr QLatin1String nameKey{"name"};
constexpr QLatin1String valueKey{"value"};

QJsonArray variablesOf(const vxJ::_JobBasics& job) {
    vxJ::_varValList list;
    job.exportJobVarList_Basic(list);
    QJsonArray variables;
    for (const auto& variable : list)
        variables.append(QJsonObject{{nameKey, variable.name}, {valueKey, variable.value}});
    return variables;
}

void appendLines(const QJsonObject& job, QStringList& lines) {
    lines += QStringLiteral("job %1  ").arg(job[jobKey].toInt()) + printable(job[layerKey].toString());
    const auto variables = job[variablesKey].toArray();
    for (const auto& entry : variables) {
        const auto variable = entry.toObject();
        lines += variable[nameKey].toString() + QLatin1String{" = "} + printable(variable[valueKey].toString());
    }
}

}  // namespace

QJsonArray jobVariableLists(const vxJ::_JobBasicsArray& jobs, int jobNumber) {
    const auto compact = std::make_unique<vxJ::_JobBasics>();
    QJsonArray lists;
    for (int i = 0; i < jobs.count; ++i) {
        const auto* const job = jobs.at(i);
        if (job == nullptr) break;  // counted, but there was no memory for it
        if (jobNumber != allJobs && jobNumber != i + 1) continue;
        job->toJobsBasic(*compact);
        lists.append(
            QJsonObject{{jobKey, i + 1}, {layerKey, job->layer.toQString()}, {variablesKey, variablesOf(*compact)}});
    }
    return lists;
}

QStringList jobVariableLines(const QJsonArray& lists) {
    QStringList lines;
    for (const auto& job : lists) {
        if (!lines.isEmpty()) lines += QString{};
        appendLines(job.toObject(), lines);
    }
    return lines;
}

}  // namespace vxH
