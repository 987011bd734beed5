#include "explain/warnings.h"

#include <algorithm>

namespace vxE {

namespace {

constexpr qint64 stepsPerWarning = 2500;
constexpr qint64 bytesPerJob = 16;  ///< that a warning is about

void addTo(QList<int>& jobs, int number) {
    const auto place = std::lower_bound(jobs.begin(), jobs.end(), number);
    if (place == jobs.end() || *place != number) jobs.insert(place, number);
}

}  // namespace

bool _warningList::add(QStringView code, const QString& node, const QList<int>& jobs, const QString& text) {
    const bool hasSteps = budget.warningSteps.take(stepsPerWarning);
    const _key key{code.toString(), node, text};
    const bool isNew = places.count(key) == 0;
    const qint64 bytesOfNew = bytesPerEntry + vxP::bytesOf(node) + vxP::bytesOf(text);
    if (!hasSteps || !budget.warningBytes.take((isNew ? bytesOfNew : 0) + bytesPerJob * jobs.size())) {
        ++leftOut.warnings;
        return hasSteps;
    }
    const auto place = places.emplace(key, warnings.size()).first;
    if (isNew) warnings.append({code.toString(), node, {}, text});
    for (const int number : jobs) addTo(warnings[place->second].jobs, number);
    return true;
}

}  // namespace vxE
