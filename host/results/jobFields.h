// The fields of a job: what each is called, and its ways from the record, to JSON and back. The one list of them.
#pragma once

#include <QJsonObject>
#include <span>

#include "host/results/job.h"
#include "host/results/jsonWriter.h"
#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "jobs/recordImage.h"

namespace vxH {

/// A record, and what tells which of it was ever written.
struct _recordSource {
    const vxJ::_JobBasics_largePath& record;
    const vxJ::_writtenPages& pages;
};

struct _jobField {
    QLatin1String name;  ///< the record's
    void (*copyFromRecord)(const _recordSource& source, _job& job);
    QJsonValue (*toJson)(const _job& job);
    void (*readJson)(const QJsonValue& value, _job& job);
    bool (*isEqual)(const _job& left, const _job& right);
};

/// In the order of their names.
std::span<const _jobField> jobFields();

/// Without `waitsFor`, which takes the other jobs to know.
_job jobFromRecord(const _recordSource& source);

/// An object with all fields, `waitsFor` and, where it is there, `resolved`; texts untouched. `channels` holds {slot,
/// name, extension}, `customData` {name, value}. `jobID` is a decimal text: it has 64 bits, a JSON number 53. A frame
/// that is no finite number is null, and so is, in `waitsFor`, a job that nobody knows.
QJsonValue jsonOf(const _job& job);
void readJson(const QJsonValue& value, _job& job);
/// The same as it is printed: with the table's cells `frames` and `output`, so that nobody has to put names and frames
/// together again. @param scene  absolute path
QJsonObject printedJson(const _job& job, const QString& scene);
/// A list of such objects, each gone from memory before the next.
void writeJson(const std::vector<_job>& jobs, const QString& scene, _jsonWriter& writer);

}  // namespace vxH
