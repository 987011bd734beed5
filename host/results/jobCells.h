// What stands in the cells of the job table: texts made from a job's JSON object for people to read.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <array>

namespace vxH {

/// What the cells of one scene need beyond their own job.
struct _cellScene {
    explicit _cellScene(const QJsonObject& result);

    QString folder;                     ///< the scene's, with its separator
    std::array<int, 256> jobWithPreID;  ///< number (from 1) of the job with that own number; 0: none or several
};

/// "out/mantra1"
QString driverCell(const QJsonObject& job);
/// Application and renderer: "Houdini/createIFD"
QString rendererCell(const QJsonObject& job);
/// The frame set, or "1001-1100 x2", "1001-1100", "7"
QString framesCell(const QJsonObject& job);
/// Folder, file name, "#" for each frame digit, and extension as one path. The folder's "<Database>" and
/// "<SceneFolder>" are written out, and so is "<Channel>" in a job of one take.
QString outputCell(const QJsonObject& job, const _cellScene& scene);
/// The same with the folder as it is recorded: alike for scenes that only lie in different folders.
QString recordedOutputCell(const QJsonObject& job);
/// "1920x1080"; empty where the camera decides
QString sizeCell(const QJsonObject& job);
/// Numbers of the jobs it waits for: "1, 2"; "id 44" where own numbers are missing or no longer unique
QString waitsForCell(const QJsonObject& job, const _cellScene& scene);

}  // namespace vxH
