// The plug-in's info record as a struct, with the record's names.
#pragma once

#include <QJsonObject>
#include <QString>
#include <variant>

namespace vxH {

struct _pluginInfo {
    int code = 0;  ///< the plug-in's answer
    int structureVersion = 0;
    int pluginKind = 0;
    int flag = 0;
    QString appName;
    QString author;
    QString pluginVersion;
    QString hostLibraryVersion;
    QString qtVersion;
    QString fileFilter;  ///< which files are scenes, as wildcards: "*.hip;*.hipnc;"
};

struct _infoField {
    QLatin1String name;
    std::variant<int _pluginInfo::*, QString _pluginInfo::*> member;
};

/// In the order of their names.
inline constexpr _infoField infoFields[] = {
    {QLatin1String{"appName"}, &_pluginInfo::appName},
    {QLatin1String{"author"}, &_pluginInfo::author},
    {QLatin1String{"code"}, &_pluginInfo::code},
    {QLatin1String{"fileFilter"}, &_pluginInfo::fileFilter},
    {QLatin1String{"flag"}, &_pluginInfo::flag},
    {QLatin1String{"hostLibraryVersion"}, &_pluginInfo::hostLibraryVersion},
    {QLatin1String{"pluginKind"}, &_pluginInfo::pluginKind},
    {QLatin1String{"pluginVersion"}, &_pluginInfo::pluginVersion},
    {QLatin1String{"qtVersion"}, &_pluginInfo::qtVersion},
    {QLatin1String{"structureVersion"}, &_pluginInfo::structureVersion},
};

QJsonObject infoToJson(const _pluginInfo& info);
_pluginInfo infoFromJson(const QJsonObject& object);

}  // namespace vxH
