// The two entry points of the plug-in, plain functions with unmangled names. Both run on the caller's thread; one call
// at a time. Neither throws, prints, or frees what it is given.
#pragma once

#include "jobs/VX_DataTypes_plugin.h"
#include "shared/vxExport.h"

/// Describes the plug-in.
/// @param[in,out] info  in: `structureVersion`, the caller's version; out: the filled record
/// @return 1 when the caller's version is 45061; else 5, with file filter and flag left alone
extern "C" VX_EXPORT quint8 pInfo(vxP::_dataPARS_PluginInfo* info) noexcept;

/// Reads a scene file and appends its render jobs to the host's job array.
/// @param[in,out] load  scene, job array and submitter settings, all owned by the host
/// @return one of `vxP::_result`
extern "C" VX_EXPORT qint32 pLoadSceneFile(vxP::_dataPARS_LoadSceneFile* load) noexcept;
