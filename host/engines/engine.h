// An engine that runs a scene's jobs.
#pragma once

#include <QByteArray>
#include <QLatin1String>

#include "host/engines/submission.h"

namespace vxH {

/// What names an engine takes: ASCII letters, digits and some marks.
struct _nameRules {
    int leastLength = 1;
    int mostLength = 200;
    QLatin1String marks{"._-"};  ///< with "-", which numbers behind a name begin with
};

struct _engine {
    QLatin1String name;         ///< as `--to` takes it
    QLatin1String description;  ///< a few words: "job template of ..."
    QLatin1String fileEnding;   ///< of what is written: ".sh"
    _nameRules stepNames{};
    _nameRules submissionNames{};
    bool isProgram = false;  ///< what is written is made executable
    /// Why the engine cannot run a step, in one line: "a newline in its command"; empty where it can.
    QString (*faultOfStep)(const _farmStep& step);
    /// The same of all steps together: "more than 100 steps".
    QString (*faultOfSubmission)(const _submission& submission);
    /// What the engine reads: the same bytes for the same submission.
    QByteArray (*write)(const _submission& submission);
};

/// Of an engine that can run any step, and any number of them.
inline QString noFault(const _farmStep&) {
    return {};
}
inline QString noFaultOfAll(const _submission&) {
    return {};
}

}  // namespace vxH
