#include "host/access/submitterSwitches.h"

#include "plugin/submitterArguments.h"

namespace vxH {

QStringList argumentsNotTaken(const _submitterArguments& arguments) {
    return vxP::argumentsNotTaken({static_cast<qint32>(arguments.size()), arguments.data()});
}

QStringList submitterSwitches() {
    return vxP::submitterSwitches();
}

}  // namespace vxH
