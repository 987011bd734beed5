#include "readers/scanObserver.h"

namespace vxP {

#ifndef VX_WITHOUT_OBSERVER
_scanObserver* scanObserver = nullptr;
#endif

}  // namespace vxP
