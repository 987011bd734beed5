// Cell texts; the caller makes them printable and fits them.
#include "host/results/jobCells.h"

#include <QRegularExpression>
#include <QStringList>
#include <cmath>

#include "shared/vxPath.h"

namespace vxH {
namespace {

constexpr QLatin1Char separator{'/'};
constexpr QLatin1String sceneFolderMark{"<SceneFolder>"};
constexpr QLatin1String databaseMark{"<Database>"};
constexpr QLatin1String channelMark{"<Channel>"};
constexpr QLatin1String parentFolder{"../"};

/// There are frames without end and undefined ones.
QString frameText(double frame) {
    return std::isfinite(frame) ? QString::number(frame, 'g', 15) : QStringLiteral("?");
}

QString inSceneFolder(QString rest, QString folder) {
    while (rest.startsWith(parentFolder) && folder.size() > 1) {
        rest.remove(0, parentFolder.size());
        folder = vxS::vxGetDirName(folder, separator);
    }
    return folder + rest;
}

}  // namespace

QString writtenOut(const QString& path, const _job& job, const QString& scene) {
    if (path.startsWith(sceneFolderMark))
        return inSceneFolder(path.mid(sceneFolderMark.size()), vxS::vxGetDirName(scene, separator));
    return path.startsWith(databaseMark) ? job.sceneDatabaseDir + path.mid(databaseMark.size()) : path;
}

QString rendererCell(const _job& job) {
    return job.appRenderer.isEmpty() ? job.app : job.app + separator + job.appRenderer;
}

QString framesCell(const _job& job) {
    if (!job.seqFrameSet.isEmpty()) return job.seqFrameSet;
    const QString first = frameText(job.seqStart);
    const QString last = frameText(job.seqEnd);
    if (first == last) return first;
    const bool isNegative = first.startsWith(QLatin1Char('-')) || last.startsWith(QLatin1Char('-'));
    const QString range = first + (isNegative ? QLatin1String{" to "} : QLatin1String{"-"}) + last;
    return job.seqStep == 1 ? range : range + QStringLiteral(" x%1").arg(job.seqStep);
}

QString outputCell(const _job& job, const QString& scene) {
    const bool hasDigits = !job.imageFileName.isEmpty() && !job.imageSingleOutputFile;
    const QString digits{hasDigits ? job.imagePadding : 0, QLatin1Char('#')};
    QString output = writtenOut(job.imageDir, job, scene) + job.imageFileName + digits + job.imageExtension;
    return job.channel.isEmpty() ? output : output.replace(channelMark, job.channel);
}

bool hasOddFrames(const _job& job) {
    if (!job.seqFrameSet.isEmpty()) return false;
    const bool isRange = !(job.seqStart == job.seqEnd);
    return !std::isfinite(job.seqStart) || !std::isfinite(job.seqEnd) || (isRange && job.seqStep == 0);
}

bool hasOddOutput(const _job& job) {
    static const QRegularExpression frameMark(QStringLiteral("%[0-9]*d"));
    return frameMark.match(job.imageDir).hasMatch() || frameMark.match(job.imageFileName).hasMatch();
}

QString sizeCell(const _job& job) {
    const bool isOpen = job.imageWidth == 0 && job.imageHeight == 0;
    return isOpen ? QString{} : QStringLiteral("%1x%2").arg(job.imageWidth).arg(job.imageHeight);
}

QString waitsForCell(const _job& job) {
    QStringList numbers;
    for (std::size_t i = 0; i < job.waitsFor.size(); ++i)
        numbers += job.waitsFor[i] == noJob ? QStringLiteral("id %1").arg(job.waitForPreIDs[i])
                                            : QString::number(job.waitsFor[i] + 1);
    return numbers.join(QLatin1String{", "});
}

}  // namespace vxH
