#include "host/engines/planText.h"

#include <algorithm>

#include "host/base/displayText.h"
#include "host/engines/bashWords.h"

namespace vxH {
namespace {

QString waitsText(const _submission& submission, const _farmStep& step) {
    QStringList names;
    for (const auto& wait : step.waits) {
        const QString& name = submission.steps[static_cast<std::size_t>(wait.step)].name;
        names += wait.isFrameByFrame ? name + QLatin1String{" frame by frame"} : name;
    }
    return names.isEmpty() ? QString{} : QLatin1String{", after "} + names.join(QLatin1String{", "});
}

}  // namespace

QStringList planLines(const _submission& submission) {
    QStringList lines{headlineForComment(submission)};
    int widest = 0;
    for (const auto& step : submission.steps) widest = std::max(widest, columnsOf(step.name));
    for (const auto& step : submission.steps)
        lines += QLatin1String{"  "} + filledUp(step.name, widest) + QLatin1String{"  "} + describedForComment(step) +
                 waitsText(submission, step);
    return lines;
}

}  // namespace vxH
