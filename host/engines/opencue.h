// Job specifications of OpenCue.
#pragma once

#include "host/engines/engine.h"

namespace vxH {

extern const _engine openCue;

}  // namespace vxH
