#include "host/text/explanationNotes.h"

#include <QStringList>
#include <algorithm>

#include "host/base/displayText.h"
#include "host/base/shellText.h"

namespace vxH {
QSet<int> warnedJobs(const _explainedScene& scene) {
    QSet<int> numbers;
    QSet<QString> drivers;
    for (const auto& warning : scene.explanation.warnings) {
        for (const int number : warning.jobs) numbers.insert(number);
        drivers.insert(warning.node);
    }
    int number = 0;
    for (const auto& job : scene.jobs)
        if (++number; drivers.contains(job.layer)) numbers.insert(number);
    return numbers;
}

QString explanationCounts(const _explainedScene& scene) {
    const auto& sections = scene.explanation.sections;
    const auto& warnings = scene.explanation.warnings;
    const auto& notRecognised = scene.explanation.notRecognised;
    const auto skipped = std::count_if(sections.begin(), sections.end(), isSkippedDriver);
    QStringList counts;
    if (!warnings.isEmpty()) {
        const bool isMarked = !warnedJobs(scene).isEmpty();
        counts += counted(warnings.size(), "warning", "warnings") + (isMarked ? QStringLiteral(" (!)") : QString());
    }
    if (skipped > 0) counts += counted(skipped, "driver without a job", "drivers without a job");
    if (!notRecognised.isEmpty()) counts += counted(notRecognised.size(), "not recognised", "not recognised");
    return counts.join(QLatin1String{", "});
}

QString explainCommandLine(const QString& scene, const _submitterArguments& submitter) {
    QString line = QLatin1String{"vxscene explain "};
    QString typed;  // by the user, behind "--"
    for (std::size_t i = 1; i < submitter.size(); ++i) {
        const auto argument = QString::fromUtf8(submitter[i]);
        if (argument == QLatin1String{resolveArgument})
            line += QLatin1String{"--resolve "};
        else
            typed += QLatin1Char(' ') + shellQuoted(argument);
    }
    line += shellQuoted(scene);
    return typed.isEmpty() ? line : line + QLatin1String{" --"} + typed;
}

}  // namespace vxH
