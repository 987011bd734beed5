// What a scene's own name and folder bring into its jobs' texts: two versions of a scene differ there without anybody
// having changed a job.
#pragma once

#include <QJsonValue>
#include <QRegularExpression>
#include <QString>

namespace vxH {

/// Puts marks in the place of the scene's folder, where a path begins with it, and of the scene's name, with or
/// without its extension, where it is a whole word: no letter or digit stands before or behind it.
class _sceneMarks {
 public:
    /// @param scene  absolute path
    explicit _sceneMarks(const QString& scene);

    QString marked(QString text) const;
    /// The same for every text in a list or object.
    QJsonValue marked(const QJsonValue& value) const;

 private:
    QString folder;  // with its separator
    QRegularExpression name;
};

}  // namespace vxH
