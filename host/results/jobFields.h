// The fields of a job: what each is called, and its ways from the record, to JSON and back. The one list of them.
#pragma once

#include <QJsonObject>
#include <span>

#include "host/results/job.h"
#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxH {

struct _jobField {
    QLatin1String name;  ///< the record's
    void (*copyFromRecord)(const vxJ::_JobBasics_largePath& record, _job& job);
    QJsonValue (*toJson)(const _job& job);
    void (*readJson)(const QJsonValue& value, _job& job);
    bool (*isEqual)(const _job& left, const _job& right);
};

/// In the order of their names.
std::span<const _jobField> jobFields();

/// Without `waitsFor`, which takes the other jobs to know.
_job jobFromRecord(const vxJ::_JobBasics_largePath& record);

/// An object with all fields, `waitsFor` and, where it is there, `resolved`; texts untouched. `channels` holds {slot,
/// name, extension}, `customData` {name, value}. `jobID` is a decimal text: it has 64 bits, a JSON number 53. A frame
/// that is no finite number is null, and so is, in `waitsFor`, a job that nobody knows.
QJsonObject jobToJson(const _job& job);
QJsonValue jsonOf(const _job& job);
void readJson(const QJsonValue& value, _job& job);

}  // namespace vxH
