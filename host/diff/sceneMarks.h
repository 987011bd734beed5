// What a scene's own name and folder bring into its jobs' texts: two versions of a scene differ there without anybody
// having changed a job.
#pragma once

#include <QRegularExpression>
#include <QString>

#include "host/results/job.h"

namespace vxH {

/// Puts marks in the place of the scene's folder, where a path begins with it, and of the scene's name, with or
/// without its extension, where it is a whole word: no letter or digit precedes or follows it.
class _sceneMarks {
 public:
    /// @param scene  absolute path
    explicit _sceneMarks(const QString& scene);

    /// The job with marks in all texts that hold paths.
    _job marked(_job job) const;

 private:
    void mark(QString& text) const;

    QString folder;  // with its separator
    QRegularExpression name;
};

}  // namespace vxH
