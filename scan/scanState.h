// What one pass over a scene gathers for all of its readers. The values are made when the plug-in is loaded and
// released with it. Nothing resets them: a second scene in the same process starts from what the first one left,
// which hosts rely on; load each scene in a process of its own to start afresh.
#pragma once

#include <QMap>
#include <QString>

#include "scan/variableList.h"
#include "shared/vxString.h"

namespace vxP {

using vxS::_size;
using vxS::_vxString;

// Frame range of the scene (frames).
extern qint32 GLseqStart;
extern qint32 GLseqEnd;
extern qint32 GLseqStep;

// Frame range of the output driver being read (frames); starts as the scene's range.
extern qint32 seqStart;
extern qint32 seqEnd;
extern qint32 seqStep;
extern bool trange;  ///< the driver being read has a range of its own

extern QString DatabaseDir;                            ///< the scene file's folder with its separator
extern _variableList hVariables;                       ///< environment first, then the scene's own
extern QMap<_vxString<150>, QString> nodeActiveTakes;  ///< take name of each driver, by node path

extern bool emptyNodesfound;             ///< a driver had no usable output name
extern bool mantraIFDJob;                ///< a render job waits for an exported scene description
extern bool overrideCameraRes;           ///< the last driver that said so overrides its camera's resolution
extern bool HIPFound_DisableLocalScene;  ///< an AOV file is named relative to the scene

}  // namespace vxP
