// The texts of a job that commands may name.
#pragma once

#include <QString>
#include <optional>

#include "host/results/job.h"
#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxH {

/// Whether jobs have a text of that name: one of jobs/jobVariables.h, or one of those below.
bool isJobText(const QString& name);

/// The texts of one job.
class _jobTexts {
 public:
    /// @param scene    absolute path
    /// @param variant  see variantOf in sceneSubmission.cpp
    /// @param record   the job's; has to outlive this
    _jobTexts(const _job& job, const QString& scene, std::optional<int> variant,
              const vxJ::_JobBasics_largePath& record);

    /// "Driver", "Take"; "Variant" is the number of a wedge's variant, empty for a job that is no copy for a wedge, and
    /// "Wedge" that wedge's node, empty also where the load was not resolved; "SceneFile" is what the job opens, and
    /// "Output" what it writes, both as paths in which only the frame is left open ("<FN4>"). All others are the job's
    /// variables.
    QString of(const QString& name) const;

 private:
    const _job& job;
    const QString& scene;
    std::optional<int> variant;
    const vxJ::_JobBasics_largePath& record;
    mutable vxJ::_varValList variables;  ///< empty until one is asked for
};

}  // namespace vxH
