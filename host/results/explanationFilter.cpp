#include "host/results/explanationFilter.h"

namespace vxH {

_explanationParts _explanationFilter::parts() const {
    if (only != nullptr) return only->parts;
    _explanationParts all;
    all.facts = !asksForNodes();
    return all;
}

QJsonObject filterToJson(const _explanationFilter& filter) {
    QJsonObject object;
    if (!filter.driver.empty()) object.insert(QLatin1String{"driver"}, QString::fromStdString(filter.driver));
    if (!filter.reader.isEmpty()) object.insert(QLatin1String{"reader"}, filter.reader);
    if (filter.only != nullptr) object.insert(QLatin1String{"only"}, QLatin1String{filter.only->name});
    return object;
}

}  // namespace vxH
