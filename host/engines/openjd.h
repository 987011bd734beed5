// Job templates of Open Job Description.
#pragma once

#include "host/engines/engine.h"

namespace vxH {

extern const _engine openJobDescription;

}  // namespace vxH
