// What stands in for the values of a scene's nodes for as long as it is shown.
#pragma once

#include <QtGlobal>
#include <string>
#include <vector>

namespace vxN {

/// A number in place of what a component holds, and of the channel that drives it.
struct _fixedNumber {
    qint32 node = -1;       ///< position in the scene's list
    std::string channel;    ///< of the component: "tx"
    std::string text;       ///< the number
    bool isRandom = false;  ///< it cannot be told: there is no text
};

struct _layer {
    qint32 take = -1;                 ///< position in the list of takes; -1: as the scene was saved
    std::vector<_fixedNumber> fixed;  ///< they count before what the take says
};

}  // namespace vxN
