// What is wrong with the files that jobs write.
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <vector>

#include "explain/warnings.h"
#include "jobs/recordImage.h"

namespace vxE {

namespace {

using vxJ::_JobBasics_largePath;

constexpr qint64 stepsPerJob = 5'000;
constexpr qint64 stepsPerCharacter = 3;  ///< of the names that a job writes
constexpr qint64 bytesPerWriter = 160;   ///< of a file, beside its name

QString frameDigits(const _JobBasics_largePath& job) {
    return job.imageSingleOutputFile ? QString() : QString(job.imagePadding, QLatin1Char('#'));
}

QString pathOf(const _JobBasics_largePath& job) {
    return job.imageDir.toQString() + fileOf(job);
}

/// All names that a job writes, without the placeholders that the host fills in.
QString writtenNamesOf(const _JobBasics_largePath& job) {
    static const QRegularExpression placeholder(QStringLiteral("<[^<>]*>"));
    QStringList names{pathOf(job)};
    const auto end = static_cast<std::size_t>(vxJ::channelsEnd(job, vxJ::_writtenPages{}));
    for (const auto& channel : std::span(job.channels, end))
        if (!channel.fileName.isEmpty()) names.append(channel.fileName.toQString() + channel.extension.toQString());
    return names.join(QLatin1Char('\n')).remove(placeholder);
}

/// A job and where its warnings go.
struct _checkedJob {
    const _JobBasics_largePath& job;
    int number;
    QString names;
    _warningList& warnings;

    bool warn(QStringView code, const QString& text) const {
        return warnings.add(code, job.layer.toQString(), {number}, text);
    }
};

void warnOfVariablesLeft(const _checkedJob& checked) {
    static const QRegularExpression variable(QStringLiteral("\\$\\{?([A-Za-z_]\\w*)"));
    static const QRegularExpression frame(QStringLiteral("^F[F0-9]?$"), QRegularExpression::CaseInsensitiveOption);
    auto match = variable.globalMatch(checked.names);
    for (bool mayGoOn = true; mayGoOn && match.hasNext();) {
        const QString name = match.next().captured(1);
        if (frame.match(name).hasMatch())
            mayGoOn = checked.warn(u"secondFrameNumber",
                                   QStringLiteral("output holds a second frame number: only the first is filled in"));
        else
            mayGoOn = checked.warn(
                u"undefinedVariable",
                QStringLiteral("output holds $%1, which the scene does not define; of the environment only variables "
                               "named HIP... are taken")
                    .arg(name));
    }
}

void warnOfExpressionsLeft(const _checkedJob& checked) {
    if (checked.names.contains(QLatin1Char('`')))
        checked.warn(u"expressionLeft",
                     QStringLiteral("output holds an expression in back-quotes, which only Houdini evaluates"));
}

void warnOfOtherSystem(const _checkedJob& checked) {
    static const QRegularExpression windows(QStringLiteral("^(?:[A-Za-z]:|\\\\\\\\)"));
    const QString path = pathOf(checked.job);
    if (windows.match(path).hasMatch())
        checked.warn(u"otherSystemPath", QStringLiteral("output %1 is a path that only Windows has").arg(path));
}

// ---- names that are hardly meant

QString folderAndName(const _JobBasics_largePath& job) {
    return job.imageDir.toQString() + job.imageFileName.toQString() + job.imageExtension.toQString();
}

bool holdsAny(const QString& text, QStringView characters) {
    return std::any_of(text.begin(), text.end(), [=](QChar character) { return characters.contains(character); });
}

bool holdsControlCharacter(const _checkedJob& checked) {
    const QString name = folderAndName(checked.job);
    return std::any_of(name.begin(), name.end(),
                       [](QChar character) { return character.category() == QChar::Other_Control; });
}
bool holdsBlankAtAnEnd(const _checkedJob& checked) {
    const QStringList parts = pathOf(checked.job).split(QLatin1Char('/'));
    return std::any_of(parts.begin(), parts.end(), [](const QString& part) { return part != part.trimmed(); });
}
bool holdsForbiddenCharacter(const _checkedJob& checked) {
    return holdsAny(checked.names, u"*?\"<>|");
}
bool holdsNumberSign(const _checkedJob& checked) {
    return folderAndName(checked.job).contains(QLatin1Char('#'));
}
bool namesNoFile(const _checkedJob& checked) {
    return fileOf(checked.job).isEmpty();
}
bool hasNoExtension(const _checkedJob& checked) {
    return !fileOf(checked.job).contains(QLatin1Char('.'));
}

struct _oddity {
    bool (*holds)(const _checkedJob&);
    QStringView text;  ///< behind the output's name
};

constexpr std::array oddities{
    // first match wins
    _oddity{namesNoFile, u"names a folder and no file"},
    _oddity{holdsControlCharacter, u"holds control characters"},
    _oddity{holdsBlankAtAnEnd, u"has a blank at the end of a name"},
    _oddity{holdsForbiddenCharacter, u"holds a character that many file systems do not take"},
    _oddity{holdsNumberSign, u"holds # beside its frame number: nothing fills it in"},
    _oddity{hasNoExtension, u"has no extension"},
};

void warnOfOddNames(const _checkedJob& checked) {
    for (const _oddity& row : oddities) {
        if (!row.holds(checked)) continue;
        checked.warn(u"oddOutput", QStringLiteral("output %1 ").arg(pathOf(checked.job)) + row.text.toString());
        return;
    }
}

constexpr std::array jobChecks{warnOfVariablesLeft, warnOfExpressionsLeft, warnOfOtherSystem, warnOfOddNames};

// ---- jobs that write the same files

/// Two jobs with the same key write the same files where their frames overlap.
QByteArray fileKey(const _JobBasics_largePath& job) {
    const QString path = pathOf(job);
    const bool byTake = path.contains(QLatin1String("<Channel"));
    const bool byCamera = path.contains(QLatin1String("<Camera"));
    const QString key = path + QLatin1Char('\n') + (byTake ? job.channel.toQString() : QString()) + QLatin1Char('\n') +
                        (byCamera ? job.camera.toQString() : QString());
    return key.toUtf8();
}

struct _jobFrames {
    double first;
    double last;
    int job;  ///< its number, from 1
};

_jobFrames framesOf(const _JobBasics_largePath& job, int number) {
    const auto& settings = job.sceneSettings;
    return {std::min(settings.seqStart, settings.seqEnd), std::max(settings.seqStart, settings.seqEnd), number};
}

bool overlap(std::vector<_jobFrames> jobs) {
    std::sort(jobs.begin(), jobs.end(), [](const _jobFrames& a, const _jobFrames& b) { return a.first < b.first; });
    for (std::size_t i = 1; i < jobs.size(); ++i)
        if (jobs[i].first <= jobs[i - 1].last) return true;
    return false;
}

QString listed(const std::vector<_jobFrames>& jobs) {
    QStringList numbers;
    for (const _jobFrames& job : jobs) numbers.append(QString::number(job.job));
    const QString last = numbers.takeLast();
    return numbers.join(QLatin1String(", ")) + QLatin1String(" and ") + last;
}

/// All of one driver: a take each.
bool areOfOneDriver(const vxJ::_JobBasicsArray& jobs, const QList<int>& numbers) {
    const QString driver = jobs.at(numbers.first() - 1)->layer.toQString();
    return std::all_of(numbers.begin(), numbers.end(),
                       [&](int number) { return jobs.at(number - 1)->layer.toQString() == driver; });
}

using _writers = std::map<QByteArray, std::vector<_jobFrames>>;  ///< by file

/// @param[out] bytes  that the writers take from those for warnings
_writers writersIn(const _loadedScene& scene, const _warningList& warnings, qint64& bytes) {
    _writers writers;
    for (int i = 0; i < scene.jobs.count; ++i) {
        const auto* const job = scene.jobs.at(i);
        if (job == nullptr) continue;
        const QByteArray key = fileKey(*job);
        const qint64 bytesOfJob = bytesPerWriter + key.size();
        if (!warnings.budget.warningSteps.take(stepsPerJob) || !warnings.budget.warningBytes.take(bytesOfJob)) {
            warnings.leftOut.jobs = std::max<qint64>(warnings.leftOut.jobs, scene.jobs.count - i);
            break;
        }
        bytes += bytesOfJob;
        writers[key].push_back(framesOf(*job, i + 1));
    }
    return writers;
}

void warnOfSameFiles(const _loadedScene& scene, _warningList& warnings) {
    qint64 bytes = 0;
    const _writers writers = writersIn(scene, warnings, bytes);
    warnings.budget.warningBytes.take(-bytes);  // they go with this function
    for (const auto& [key, jobs] : writers) {
        if (jobs.size() < 2 || !overlap(jobs)) continue;
        QList<int> numbers;
        for (const _jobFrames& job : jobs) numbers.append(job.job);
        const _JobBasics_largePath& first = *scene.jobs.at(numbers.first() - 1);
        QString text = QStringLiteral("jobs %1 write the same files: %2").arg(listed(jobs), fileOf(first));
        if (areOfOneDriver(scene.jobs, numbers)) text += QLatin1String(", as the name holds no take");
        warnings.add(u"sameFiles", first.layer.toQString(), numbers, text);
    }
}

}  // namespace

QString fileOf(const _JobBasics_largePath& job) {
    return job.imageFileName.toQString() + frameDigits(job) + job.imageExtension.toQString();
}

void warnOfOutputs(const _loadedScene& scene, _warningList& warnings) {
    for (int i = 0; i < scene.jobs.count; ++i) {
        const auto* const job = scene.jobs.at(i);
        if (job == nullptr) continue;
        const _checkedJob checked{*job, i + 1, writtenNamesOf(*job), warnings};
        if (!warnings.budget.warningSteps.take(stepsPerJob + stepsPerCharacter * checked.names.size())) {
            warnings.leftOut.jobs = scene.jobs.count - i;
            break;
        }
        for (const auto check : jobChecks) check(checked);
    }
    warnOfSameFiles(scene, warnings);
}

}  // namespace vxE
