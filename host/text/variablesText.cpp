#include "host/text/variablesText.h"

#include "host/base/displayText.h"

namespace vxH {

QStringList variableLines(const std::vector<_jobVariables>& jobs) {
    QStringList lines;
    for (const auto& job : jobs) {
        if (!lines.isEmpty()) lines += QString{};
        lines += QStringLiteral("job %1  ").arg(job.number) + printable(job.driver);
        for (const auto& variable : job.variables)
            lines += variable.name + QLatin1String{" = "} + printable(variable.value);
    }
    return lines;
}

}  // namespace vxH
