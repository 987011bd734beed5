// The folder that many paths of a list begin with, to be said once.
#pragma once

#include <QStringList>

namespace vxH {

struct _sharedFolder {
    QString path;  ///< with its separator; empty: there is none
    bool ofAll;    ///< no path begins otherwise
};

/// The one that shortens the list most: that of all paths, `usual`, or that of the paths outside `usual`. Where paths
/// are left that do not show by their first characters where they begin, only that of all counts.
_sharedFolder sharedFolder(const QStringList& paths, const QString& usual);

/// The path without that folder; as it is where it does not begin with it, or is nothing else.
QString withoutFolder(const QString& path, const QString& folder);

}  // namespace vxH
