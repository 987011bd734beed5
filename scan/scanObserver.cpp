#include "scan/scanObserver.h"

namespace vxP {

_scanObserver* scanObserver = nullptr;

}  // namespace vxP
