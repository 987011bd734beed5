#include "host/access/submitterSwitches.h"

#include "plugin/submitterArguments.h"

namespace vxH {

QStringList argumentsNotTaken(const _submitterArguments& arguments) {
    return vxP::argumentsNotTaken({static_cast<qint32>(arguments.size()), arguments.data()});
}

bool asksToResolve(const _submitterArguments& arguments) {
    const vxP::_submitterSettings settings{static_cast<qint32>(arguments.size()), arguments.data()};
    vxP::_sceneFacts facts;
    vxP::readSubmitterArguments(settings, facts);
    return facts.resolves;
}

QStringList submitterSwitches() {
    return vxP::submitterSwitches();
}

}  // namespace vxH
