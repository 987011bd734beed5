// All engines, in the order in which the help names them. One more is a file of its own and a row here.
#pragma once

#include <array>

#include "host/engines/engine.h"

namespace vxH {

extern const _engine shellEngine;
extern const _engine slurmEngine;

/// Pointers, as each engine is a constant of its own file.
inline constexpr std::array engines{&shellEngine, &slurmEngine};

}  // namespace vxH
