// The plug-in as a loaded library: its file and its two entry points.
#pragma once

#include <QString>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {

/// The plug-in's entry points; null until it is loaded. A loaded plug-in stays loaded until the process ends: its
/// state is as old as the process.
struct _pluginLibrary {
    quint8 (*info)(vxP::_dataPARS_PluginInfo*) = nullptr;
    qint32 (*loadSceneFile)(vxP::_dataPARS_LoadSceneFile*) = nullptr;

    /// Loads the library and finds the entry points. @return why not, in one line; empty when all went well
    QString load(const QString& path);
};

/// The program's own plug-in: the file beside the program, or where an installed program has it.
QString defaultPlugin();

}  // namespace vxH
