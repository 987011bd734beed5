#include "host/text/sharedFolder.h"

#include <algorithm>
#include <array>

namespace vxH {
namespace {

constexpr QLatin1Char separator{'/'};
constexpr int leastPath = 2;  // "/" alone is not worth a word

/// Both begin with it; up to a separator.
QString commonFolder(const QString& folder, const QString& path) {
    const auto [end, ignored] = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
    const auto common = folder.left(static_cast<int>(end - folder.begin()));
    return common.left(common.lastIndexOf(separator) + 1);
}

QString folderOf(const QString& path) {
    return path.left(path.lastIndexOf(separator) + 1);
}

/// Of the paths that are not below `other`; with an empty one, of all.
QString commonFolder(const QStringList& paths, const QString& other) {
    QString folder;
    bool isFirst = true;
    for (const auto& path : paths) {
        if (!other.isEmpty() && path.startsWith(other)) continue;
        folder = isFirst ? folderOf(path) : commonFolder(folder, path);
        isFirst = false;
    }
    return folder;
}

/// "/..." and "E:...": such a path cannot be taken for one below a folder.
bool showsItsBeginning(const QString& path) {
    return path.startsWith(separator) || path.mid(1, 1) == QLatin1String{":"};
}

}  // namespace

_sharedFolder sharedFolder(const QStringList& paths, const QString& usual) {
    _sharedFolder best{{}, false};
    qint64 mostSaved = 0;
    const std::array candidates{commonFolder(paths, {}), usual, commonFolder(paths, usual)};
    for (const auto& folder : candidates) {
        if (folder.size() < leastPath) continue;
        const auto isBelow = [&](const QString& path) { return path.startsWith(folder); };
        const auto count = std::count_if(paths.begin(), paths.end(), isBelow);
        const bool ofAll = count == paths.size();
        const bool isClear = ofAll || std::all_of(paths.begin(), paths.end(), showsItsBeginning);
        const qint64 saved = isClear && (ofAll || count > 1) ? count * folder.size() : 0;
        if (saved <= mostSaved) continue;
        mostSaved = saved;
        best = {folder, ofAll};
    }
    return best;
}

QString withoutFolder(const QString& path, const QString& folder) {
    return path.size() > folder.size() && path.startsWith(folder) ? path.mid(folder.size()) : path;
}

}  // namespace vxH
