// What has become of a scene's jobs: which came, went or changed. Pure: from two results to differences, and from those
// to JSON.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <vector>

namespace vxH {

enum class _compared {
    jobs,        ///< not what follows from the scenes' own names and folders, nor from the jobs' numbers
    everyField,  ///< every field as it stands
};

struct _fieldDifference {
    QString name;  ///< as in jobJson.h
    QJsonValue before;
    QJsonValue now;
};

/// A job that differs. Numbers count from 1, as in the table of jobs; 0: the scene has no such job.
struct _jobDifference {
    int oldNumber;
    int newNumber;
    std::vector<_fieldDifference> fields;  ///< of a job that both scenes have, by name

    bool hasCome() const { return oldNumber == 0; }
    bool hasGone() const { return newNumber == 0; }
};

struct _jobDiff {
    std::vector<_jobDifference> differences;  ///< as in the new scene; behind them jobs that went, as in the old one
    int unchanged = 0;                        ///< jobs
};

/// Compares the jobs of two results; see jobMatch.h for which of them are the same.
///
/// `_compared::jobs` leaves `preID` out, compares `waitForPreIDs` by the jobs that are meant, and takes texts that hold
/// paths for equal when they only differ in what sceneMarks.h makes marks of.
_jobDiff diffJobs(const QJsonObject& oldResult, const QJsonObject& newResult, _compared compared);

/// Both paths, whole jobs that came and went, fields of those that changed.
QJsonObject diffToJson(const _jobDiff& diff, const QJsonObject& oldResult, const QJsonObject& newResult);

/// Job `number` (from 1) of a result.
QJsonObject jobNumbered(const QJsonObject& result, int number);

}  // namespace vxH
