// Cell texts; the caller makes them printable and fits them.
#include "host/results/jobCells.h"

#include <QStringList>

#include "host/results/sceneResult.h"
#include "shared/vxPath.h"

namespace vxH {
namespace {

constexpr QLatin1Char separator{'/'};
constexpr QLatin1String sceneFolderMark{"<SceneFolder>"};
constexpr QLatin1String databaseMark{"<Database>"};
constexpr QLatin1String channelMark{"<Channel>"};
constexpr QLatin1String parentFolder{"../"};

QString text(const QJsonObject& job, const char* field) {
    return job[QLatin1String{field}].toString();
}
int number(const QJsonObject& job, const char* field) {
    return job[QLatin1String{field}].toInt();
}

/// JSON has no endless or undefined numbers: a frame of that kind reads as null.
QString frameText(const QJsonValue& frame) {
    return frame.isDouble() ? QString::number(frame.toDouble(), 'g', 15) : QStringLiteral("?");
}

QString inSceneFolder(QString rest, QString folder) {
    while (rest.startsWith(parentFolder) && folder.size() > 1) {
        rest.remove(0, parentFolder.size());
        folder = vxS::vxGetDirName(folder, separator);
    }
    return folder + rest;
}

QString writtenOutFolder(const QJsonObject& job, const _cellScene& scene) {
    const QString folder = text(job, "imageDir");
    if (folder.startsWith(sceneFolderMark)) return inSceneFolder(folder.mid(sceneFolderMark.size()), scene.folder);
    if (!folder.startsWith(databaseMark)) return folder;
    return text(job, "sceneDatabaseDir") + folder.mid(databaseMark.size());
}

QString outputIn(const QString& folder, const QJsonObject& job) {
    const bool oneFile = job[QLatin1String{"imageSingleOutputFile"}].toBool();
    const QString fileName = text(job, "imageFileName");
    const QString digits{fileName.isEmpty() || oneFile ? 0 : number(job, "imagePadding"), QLatin1Char('#')};
    QString output = folder + fileName + digits + text(job, "imageExtension");
    const QString take = text(job, "channel");
    return take.isEmpty() ? output : output.replace(channelMark, take);
}

}  // namespace

_cellScene::_cellScene(const QJsonObject& result)
    : folder{vxS::vxGetDirName(result[sceneKey].toString(), separator)}, jobWithPreID{} {
    std::array<int, 256> timesUsed{};
    int jobNumber = 0;
    const auto jobs = result[jobsKey].toArray();
    for (const auto& job : jobs) {
        const auto preID = static_cast<quint8>(number(job.toObject(), "preID"));
        jobWithPreID[preID] = ++timesUsed[preID] == 1 ? jobNumber + 1 : 0;
        ++jobNumber;
    }
}

QString driverCell(const QJsonObject& job) {
    return text(job, "layer");
}

QString rendererCell(const QJsonObject& job) {
    const QString app = text(job, "app");
    const QString renderer = text(job, "appRenderer");
    return renderer.isEmpty() ? app : app + separator + renderer;
}

QString framesCell(const QJsonObject& job) {
    const QString frameSet = text(job, "seqFrameSet");
    if (!frameSet.isEmpty()) return frameSet;
    const QString first = frameText(job[QLatin1String{"seqStart"}]);
    const QString last = frameText(job[QLatin1String{"seqEnd"}]);
    if (first == last) return first;
    const bool isNegative = first.startsWith(QLatin1Char('-')) || last.startsWith(QLatin1Char('-'));
    const QString range = first + (isNegative ? QLatin1String{" to "} : QLatin1String{"-"}) + last;
    const int step = number(job, "seqStep");
    return step == 1 ? range : range + QStringLiteral(" x%1").arg(step);
}

QString outputCell(const QJsonObject& job, const _cellScene& scene) {
    return outputIn(writtenOutFolder(job, scene), job);
}

QString recordedOutputCell(const QJsonObject& job) {
    return outputIn(text(job, "imageDir"), job);
}

QString sizeCell(const QJsonObject& job) {
    const int width = number(job, "imageWidth");
    const int height = number(job, "imageHeight");
    return width == 0 && height == 0 ? QString{} : QStringLiteral("%1x%2").arg(width).arg(height);
}

QString waitsForCell(const QJsonObject& job, const _cellScene& scene) {
    QStringList numbers;
    const auto preIDs = job[QLatin1String{"waitForPreIDs"}].toArray();
    for (const auto& entry : preIDs) {
        const auto preID = static_cast<quint8>(entry.toInt());
        const int jobNumber = scene.jobWithPreID[preID];
        numbers += jobNumber > 0 ? QString::number(jobNumber) : QStringLiteral("id %1").arg(preID);
    }
    return numbers.join(QLatin1String{", "});
}

}  // namespace vxH
