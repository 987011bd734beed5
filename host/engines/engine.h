// The engines that run a scene's jobs, one row each.
#pragma once

#include <QByteArray>
#include <QLatin1String>

#include "host/engines/submission.h"

namespace vxH {

/// What names an engine takes.
struct _nameRules {
    int leastLength = 1;
    int mostLength = 255;   ///< UTF-16 characters
    QLatin1String marks{};  ///< characters allowed beside ASCII letters and digits; others become "_"
};

struct _engine {
    QLatin1String name;         ///< as `--to` takes it
    QLatin1String description;  ///< one line
    QLatin1String fileEnding;   ///< of what is written: ".sh"
    _nameRules stepNames;
    _nameRules submissionNames;
    bool isProgram = false;  ///< what is written is run: it is made executable
    /// Why the engine cannot run a step, in one line: "more than 1000 tasks"; empty where it can.
    QString (*faultOfStep)(const _farmStep& step);
    /// The same of what all steps together come to: "more than 100 steps".
    QString (*faultOfSubmission)(const _submission& submission);
    /// The submission as the engine reads it: the same bytes for the same submission.
    QByteArray (*write)(const _submission& submission);
};

}  // namespace vxH
