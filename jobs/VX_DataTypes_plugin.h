// The records that a host hands to the plug-in's two entry points.
//
// Offsets and sizes are part of the binary interface and are checked in recordLayout.cpp.
#pragma once

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxP {

using vxS::_vxString;

constexpr quint16 pluginStructureVersion = 0xB005;  ///< version word of the info record, 45061

/// Answers of the entry points and of the section readers.
enum _result : qint32 {
    resultSuccess = 1,          ///< the load went well, or the scan goes on
    resultCannotOpen = 3,       ///< the scene cannot be opened for reading
    resultVersionMismatch = 5,  ///< the caller's record has another layout
    resultException = 6,        ///< exception, read error, limit of a load: it ended; jobs added before stay
    resultNoMoreJobs = 7,       ///< a job could not be added or fetched; jobs added before stay
    resultNoUsableOutput = 25,  ///< no job, but drivers without a usable output name
};

/// Filled by `pInfo`, 722 bytes.
struct _dataPARS_PluginInfo {
    quint16 structureVersion;  ///< in: the caller's version; out: 45061
    quint16 pluginKind;        ///< 1
    quint8 reservedKind[14];
    _vxString<50> appName;
    _vxString<100> author;
    _vxString<25> pluginVersion;
    _vxString<25> hostLibraryVersion;
    _vxString<25> qtVersion;
    quint8 flag;  ///< 0; written only when the version matched
    quint8 reservedFlag[17];
    _vxString<100> fileFilter;  ///< written only when the version matched
};

/// The submitter's command line. Element 0 is the program.
struct _submitterSettings {
    qint32 argumentCount;
    const char* const* arguments;  ///< zero-terminated UTF-8
};

/// One scene to load: given to `pLoadSceneFile` and by it, unchanged, to every section reader. All three belong to
/// the host.
struct _dataPARS_LoadSceneFile {
    const _vxString<500>* sceneFileName;  ///< full path
    vxJ::_JobBasicsArray* jobArray;       ///< jobs are appended
    const _submitterSettings* settings;
};

}  // namespace vxP
