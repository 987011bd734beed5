// The marks are characters for private use, which no program gives a meaning.
#include "host/diff/sceneMarks.h"

#include "shared/vxPath.h"

namespace vxH {
namespace {

constexpr QLatin1Char separator{'/'};
constexpr QChar folderMark{0xE000};
constexpr QChar nameMark{0xE001};

/// Texts with paths in them, beside those of lists.
constexpr QString _job::*paths[] = {&_job::imageDir, &_job::imageFileName, &_job::sceneDatabaseDir, &_job::sceneName};

/// The name as a whole word.
QRegularExpression nameIn(const QString& scene) {
    const QString base = vxS::vxGetFileNameBase(scene, separator);
    const QString extension = scene.mid(vxS::vxGetDirName(scene, separator).size() + base.size());
    return QRegularExpression{QStringLiteral("(?<![\\p{L}\\p{N}])%1(?:%2)?(?![\\p{L}\\p{N}])")
                                  .arg(QRegularExpression::escape(base), QRegularExpression::escape(extension))};
}

}  // namespace

_sceneMarks::_sceneMarks(const QString& scene) : folder{vxS::vxGetDirName(scene, separator)}, name{nameIn(scene)} {
}

_job _sceneMarks::marked(_job job) const {
    for (QString _job::*const path : paths) mark(job.*path);
    for (auto& file : job.channels) {
        mark(file.name);
        mark(file.extension);
    }
    for (auto& text : job.customData) {
        mark(text.name);
        mark(text.value);
    }
    return job;
}

void _sceneMarks::mark(QString& text) const {
    const bool isInFolder = (text + separator).startsWith(folder);  // the folder itself may lack its separator
    if (isInFolder) text.replace(0, folder.size(), folderMark);
    text.replace(name, nameMark);
}

}  // namespace vxH
