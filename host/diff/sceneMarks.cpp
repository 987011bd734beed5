// The marks are characters for private use, which no program gives a meaning.
#include "host/diff/sceneMarks.h"

#include <QJsonArray>
#include <QJsonObject>

#include "shared/vxPath.h"

namespace vxH {
namespace {

constexpr QLatin1Char separator{'/'};
constexpr QChar folderMark{0xE000};
constexpr QChar nameMark{0xE001};

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

QString _sceneMarks::marked(QString text) const {
    const bool isInFolder = (text + separator).startsWith(folder);  // the folder itself may lack its separator
    if (isInFolder) text.replace(0, folder.size(), folderMark);
    return text.replace(name, nameMark);
}

QJsonValue _sceneMarks::marked(const QJsonValue& value) const {
    if (value.isString()) return marked(value.toString());
    if (value.isArray()) {
        QJsonArray list;
        const auto entries = value.toArray();
        for (const auto& entry : entries) list.append(marked(QJsonValue{entry}));
        return list;
    }
    if (value.isObject()) {
        QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member) *member = marked(QJsonValue{*member});
        return object;
    }
    return value;
}

}  // namespace vxH
