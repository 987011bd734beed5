// What the report page shows of explained scenes: one small row for each job instead of its whole record, and what
// differs between the scenes.
#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <vector>

#include "host/files/sceneFiles.h"
#include "host/results/explainedScene.h"

namespace vxH {

/// A scene as it gets into a report. It is made in a child process, see `toBytes`.
struct _reportScene {
    QJsonObject shown;    ///< the scene's part of the page's data
    _sceneResult result;  ///< for comparisons
};

/// `shown` holds, texts untouched, `scene`, `code` and, where the scene has them, `error`, `facts` and `warnings`;
/// `outcome` is there for a scene without jobs, "no jobs", and for one that failed, "failed". Empty texts, empty lists
/// and steps of 1 are left out, so that a scene takes some two kilobytes.
///
/// Its `jobs` hold the cells of the job table (`driver`, `renderer`, `frames`, `output`, `camera`, `take`, `size`),
/// numbers to sort and draw by (`start`, `end`, `step`; missing where a frame set counts or a frame is no number),
/// `frameCount` and `fault` (see jobFrames.h), `waitsFor` (numbers of jobs, from 1) and `waitsForIDs` (own numbers that
/// no job before has). The variables among the facts are lists: name, value and, of others than the scene's, the
/// source. `skipped` lists what gave no job: sections without an outcome and those not recognised (without `reader`);
/// it is missing where the scene was not read.
///
/// Where the disk is looked at, each job has `files`: how many there will be as far as they are known (`of`), how many
/// are there (`there`), how many names nothing is known of (`unknown`), and what is missing in words (`missing`, lines,
/// which are cut).
/// @param question  none: the disk is not looked at
_reportScene reportScene(const _explainedScene& scene, const std::optional<_diskQuestion>& question = std::nullopt);

QByteArray toBytes(const _reportScene& scene);
_reportScene reportSceneFromBytes(const QByteArray& bytes);

/// What a report tells of itself.
struct _reportOrigin {
    QString program;
    QDateTime made;
    bool asksToCompare = false;  ///< scenes that belong together: the page opens on what differs
};

/// The page's data: `program`, `made` (ISO 8601, UTC) and `asksToCompare` as given, `scenes` as above, and
/// `comparisons`, which say what `vxscene diff` says of two scenes, by their places from 0: `left`, `right` (the later
/// one), `came` and `went` (numbers of jobs), and `changed`: `left`, `right` (numbers of the job) and `fields`, each of
/// `name`, `before` and `after`. Jobs of the right scene that are in none of them are unchanged.
///
/// Of up to 20 scenes every pair is compared as long as they have not too many jobs. Of more scenes each is compared
/// with the next one, and only where the report asks for it. A scene whose jobs are not known is compared with none.
QJsonObject reportData(const std::vector<_reportScene>& scenes, const _reportOrigin& origin);

}  // namespace vxH
