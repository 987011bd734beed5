// What a scene came to, whichever command asked for it.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "host/results/job.h"

namespace vxH {

/// What every result tells.
struct _sceneHead {
    QString scene;                     ///< absolute path
    qint32 code = 0;                   ///< the plug-in's, or a `_hostCode`
    QString error;                     ///< one line, also on why a scene has no jobs; empty for a scene that was loaded
    QString message;                   ///< submitter options of the whole submission
    std::optional<bool> isComplete{};  ///< false: the file ends before the scene does; none: not known

    bool isLoaded() const;
    bool isCut() const { return isComplete == false; }
    /// False for a scene that failed. One whose drivers have no usable output names has not: there are no jobs.
    bool knowsItsJobs() const;
    /// One line: the error, and that the scene is cut; empty: neither.
    QString problem() const;
};

/// What resolving a scene would make of its jobs.
struct _whenResolved {
    int differ = 0;  ///< change or go
    int come = 0;
};

struct _sceneResult : _sceneHead {
    std::vector<_job> jobs;                       ///< with those made before a failure
    std::optional<_whenResolved> whenResolved{};  ///< none: nobody looked
};

/// The variables of one job.
struct _jobVariables {
    int number;  ///< of the job, from 1
    QString driver;
    std::vector<_namedText> variables;  ///< see jobs/jobVariables.h
};

struct _sceneVariables : _sceneHead {
    std::vector<_jobVariables> jobs;
};

/// The head of a scene that failed.
_sceneHead failedHead(const QString& scene, qint32 code, const QString& error);

}  // namespace vxH
