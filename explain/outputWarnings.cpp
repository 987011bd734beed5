// What is wrong with the files that jobs write.
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <map>
#include <vector>

#include "explain/warnings.h"

namespace vxE {

namespace {

using vxJ::_JobBasics_largePath;

QString frameDigits(const _JobBasics_largePath& job) {
    return job.imageSingleOutputFile ? QString() : QString(job.imagePadding, QLatin1Char('#'));
}

QString fileOf(const _JobBasics_largePath& job) {
    return job.imageFileName.toQString() + frameDigits(job) + job.imageExtension.toQString();
}

QString pathOf(const _JobBasics_largePath& job) {
    return job.imageDir.toQString() + fileOf(job);
}

/// All names that a job writes, without the placeholders that the host fills in.
QString namesOf(const _JobBasics_largePath& job) {
    static const QRegularExpression placeholder(QStringLiteral("<[^<>]*>"));
    QStringList names{pathOf(job)};
    for (const auto& channel : job.channels)
        if (!channel.fileName.isEmpty()) names.append(channel.fileName.toQString() + channel.extension.toQString());
    return names.join(QLatin1Char('\n')).remove(placeholder);
}

/// A job and where its warnings go.
struct _look {
    const _JobBasics_largePath& job;
    int number;
    QString names;
    _warnings& warnings;

    void warn(QStringView code, const QString& text) const {
        warnings.add(code, job.layer.toQString(), {number}, text);
    }
};

void warnOfVariablesLeft(const _look& look) {
    static const QRegularExpression variable(QStringLiteral("\\$\\{?([A-Za-z_]\\w*)"));
    static const QRegularExpression frame(QStringLiteral("^F[F0-9]?$"), QRegularExpression::CaseInsensitiveOption);
    for (auto match = variable.globalMatch(look.names); match.hasNext();) {
        const QString name = match.next().captured(1);
        if (frame.match(name).hasMatch())
            look.warn(u"secondFrameNumber",
                      QStringLiteral("output holds a second frame number: only the first is filled in"));
        else
            look.warn(
                u"undefinedVariable",
                QStringLiteral("output holds $%1, which neither the scene nor the environment defines").arg(name));
    }
}

void warnOfExpressionsLeft(const _look& look) {
    if (look.names.contains(QLatin1Char('`')))
        look.warn(u"expressionLeft",
                  QStringLiteral("output holds an expression in back-quotes, which only Houdini evaluates"));
}

void warnOfOtherSystem(const _look& look) {
    static const QRegularExpression windows(QStringLiteral("^(?:[A-Za-z]:|\\\\\\\\)"));
    const QString path = pathOf(look.job);
    if (windows.match(path).hasMatch())
        look.warn(u"otherSystemPath", QStringLiteral("output %1 is a path that only Windows has").arg(path));
}

constexpr std::array checks{warnOfVariablesLeft, warnOfExpressionsLeft, warnOfOtherSystem};

// ---- jobs that write the same files

/// Two jobs with the same key write the same files where their frames overlap.
QString fileKey(const _JobBasics_largePath& job) {
    const QString path = pathOf(job);
    const bool byTake = path.contains(QLatin1String("<Channel"));
    const bool byCamera = path.contains(QLatin1String("<Camera"));
    return path + QLatin1Char('\n') + (byTake ? job.channel.toQString() : QString()) + QLatin1Char('\n') +
           (byCamera ? job.camera.toQString() : QString());
}

struct _frames {
    double first;
    double last;
    int job;  ///< its number, from 1
};

_frames framesOf(const _JobBasics_largePath& job, int number) {
    const auto& settings = job.sceneSettings;
    return {std::min(settings.seqStart, settings.seqEnd), std::max(settings.seqStart, settings.seqEnd), number};
}

bool overlap(std::vector<_frames> jobs) {
    std::sort(jobs.begin(), jobs.end(), [](const _frames& a, const _frames& b) { return a.first < b.first; });
    for (std::size_t i = 1; i < jobs.size(); ++i)
        if (jobs[i].first <= jobs[i - 1].last) return true;
    return false;
}

QString listed(const std::vector<_frames>& jobs) {
    QStringList numbers;
    for (const _frames& job : jobs) numbers.append(QString::number(job.job));
    const QString last = numbers.takeLast();
    return numbers.join(QLatin1String(", ")) + QLatin1String(" and ") + last;
}

/// All of one driver: a take each.
bool areOfOneDriver(const vxJ::_JobBasicsArray& jobs, const QList<int>& numbers) {
    const QString driver = jobs.at(numbers.first() - 1)->layer.toQString();
    return std::all_of(numbers.begin(), numbers.end(),
                       [&](int number) { return jobs.at(number - 1)->layer.toQString() == driver; });
}

void warnOfSameFiles(const _explainedScene& scene, _warnings& warnings) {
    std::map<QString, std::vector<_frames>> writers;
    for (int i = 0; i < scene.jobs.count; ++i)
        if (const auto* const job = scene.jobs.at(i)) writers[fileKey(*job)].push_back(framesOf(*job, i + 1));
    for (const auto& [key, jobs] : writers) {
        if (jobs.size() < 2 || !overlap(jobs)) continue;
        QList<int> numbers;
        for (const _frames& job : jobs) numbers.append(job.job);
        const _JobBasics_largePath& first = *scene.jobs.at(numbers.first() - 1);
        QString text = QStringLiteral("jobs %1 write the same files: %2").arg(listed(jobs), fileOf(first));
        if (areOfOneDriver(scene.jobs, numbers)) text += QLatin1String(", as the name holds no take");
        warnings.add(u"sameFiles", first.layer.toQString(), numbers, text);
    }
}

}  // namespace

void warnOfOutputs(const _explainedScene& scene, _warnings& warnings) {
    for (int i = 0; i < scene.jobs.count; ++i) {
        const auto* const job = scene.jobs.at(i);
        if (job == nullptr) continue;
        const _look look{*job, i + 1, namesOf(*job), warnings};
        for (const auto check : checks) check(look);
    }
    warnOfSameFiles(scene, warnings);
}

}  // namespace vxE
