#include "scan/scanState.h"

namespace vxP {

qint32 GLseqStart = 1;
qint32 GLseqEnd = 100;
qint32 GLseqStep = 1;

qint32 seqStart = 1;
qint32 seqEnd = 100;
qint32 seqStep = 1;
bool trange = false;

QString DatabaseDir;
_variableList hVariables;
QMap<_vxString<150>, QString> nodeActiveTakes;

bool emptyNodesfound = false;
bool mantraIFDJob = false;
bool overrideCameraRes = false;
bool HIPFound_DisableLocalScene = false;

}  // namespace vxP
