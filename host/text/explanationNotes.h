// What a table of jobs tells of their explanation.
#pragma once

#include <QSet>

#include "host/base/submitterArguments.h"
#include "host/results/explainedScene.h"

namespace vxH {

/// Numbers of the jobs that a warning is about, or their driver.
QSet<int> warnedJobs(const _explainedScene& scene);

/// "7 warnings (!), 5 drivers without a job, 2 not recognised" without what there is none of; empty: there is nothing.
QString explanationCounts(const _explainedScene& scene);

/// The command that tells more, to be pasted into a shell: "vxscene explain /a/b.hip".
QString explainCommandLine(const QString& scene, const _submitterArguments& submitter);

}  // namespace vxH
