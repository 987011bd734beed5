// What the report page shows of explained scenes: one small row a job instead of its whole record.
#pragma once

#include <QJsonArray>
#include <QJsonObject>

namespace vxH {

/// The page's data, texts untouched:
/// `program` as given, and `scenes`, each with `scene`, `code` and, where the explained scene has them, `error`,
/// `facts` and `warnings`. Its `jobs` hold the cells of the job table (`driver`, `renderer`, `frames`, `output`,
/// `camera`, `take`, `size`), numbers to sort and draw by (`start`, `end`, `step`; missing where a frame set counts or
/// a frame is no number), `recorded` (the output with its folder as recorded; only where that differs), `waitsFor`
/// (numbers of jobs, from 1) and `waitsForIDs` (own numbers that no job before has). `skipped` lists what gave no job:
/// sections without an outcome and those not recognised (without `reader`); it is missing where the explained scene
/// tells neither.
QJsonObject reportData(const QJsonArray& explainedScenes, const QString& program);

}  // namespace vxH
